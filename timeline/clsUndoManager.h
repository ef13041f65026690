#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "seam/clsEventSink.h"
#include "timeline/clsUndoHistory.h"

/// Undo and redo: the list of everything the user changed, and the refreshing that follows a change.
/// There is one, GCUndoList; commands and block markers report to that one. It owns its commands.
/// A change is pushed as a pair of commands and then run, or skipped if the caller has made it already. Pairs
/// between OpenBlock() and CloseBlock() are one step.
///
/// Bounds: the list holds kMaxEntries entries and drops its oldest whole steps beyond that. A single step
/// that is longer than the whole list is carried out but cannot be undone: it empties the list, since half of
/// it could only be undone into a state that never was.
///
/// Sequences that make no sense stay harmless: a close without an open block is ignored, an undo inside an
/// open block closes it and takes it back whole.
///
/// A command that pushes while it runs: what it pushes and executes is run as a part of it and leaves no
/// entry, the running command's own undo answers for it. Its blocks, undos and skips are ignored, and Clear()
/// waits until it has returned. A command that throws: the whole step is taken back, the list stands as
/// before, and the exception goes on.
///
/// Threads: GUI thread only.
class UndoManager_cls {
  public:
    using Command = UndoHistory_cls::Command;
    static constexpr size_t kMaxEntries = 65534;

    UndoManager_cls() = default;
    UndoManager_cls(const UndoManager_cls&) = delete;
    UndoManager_cls& operator=(const UndoManager_cls&) = delete;

    // Recording

    /// Drops the redo history and appends the pair. Runs nothing.
    void PushNewCommand(Command doCommand, Command undoCommand);
    /// The usual way: pushes the pair and runs it.
    void PushAndExec(Command doCommand, Command undoCommand) {
        PushNewCommand(std::move(doCommand), std::move(undoCommand));
        ExecCurrent();
    }
    /// Redoes one step, or runs the pair just pushed: the command at the cursor, and while a block is open
    /// the ones after it. Out of blocks the refreshing follows.
    void ExecCurrent();
    /// Takes back one step. At the beginning of the list nothing happens.
    void UndoCurrent();
    /// As ExecCurrent(), but the commands are not run: the caller has made the changes itself. What they
    /// would have refreshed is refreshed.
    void SkipCurrent();

    /// The name stands in the Edit menu; without one the step bears its first command's.
    void OpenBlock(const wxString& name = {});
    /// Nothing is left of a block without content.
    void CloseBlock();

    /// Takes one entry out; with a marker goes its partner, so that blocks stay whole.
    void RemoveItem(size_t i);
    /// A new or closed project: forgets everything, and the present state counts as saved.
    void Clear();

    // A drag: all changes between BeginDrag() and EndDrag() are one step, however many the mouse sends

    /// Begins a drag; one still under way ends. The views follow each change of the drag as it comes.
    void BeginDrag(const wxString& name = {});
    /// Takes back what the drag has done so far and forgets it, without refreshing. Called before each new
    /// state of the drag, which is then a change from the state at its beginning: nothing adds up, and the
    /// step left at the end is as short as a single change.
    void RestartDrag();
    void EndDrag();
    /// RestartDrag() and EndDrag(), for the Escape key.
    void CancelDrag();

    // What the menus show

    bool CanUndo() const { return mHistory.GetCursor() > 0; }
    bool CanRedo() const { return mHistory.GetCursor() < mHistory.GetSize(); }
    /// Name of the step that an undo or a redo would take, e.g. "Move Key". Empty when it has none.
    wxString GetUndoName() const;
    wxString GetRedoName() const;
    /// The project has just been written.
    void MarkSaved() { mHistory.MarkSaved(); }
    /// True when the project differs from the one last written. Undoing back to that state makes it false
    /// again, unless that state has left the list.
    bool IsModified() const { return mHistory.IsModified(); }

    size_t GetSize() const { return mHistory.GetSize(); }
    /// The number of entries that are done.
    size_t GetCursor() const { return mHistory.GetCursor(); }
    int GetBlockDepth() const { return mBlockDepth; }
    /// Type of entry i's undo or do command, -1 beyond the list.
    int GetUndoCommandType(size_t i) const;
    int GetRedoCommandType(size_t i) const;

    // Refreshing

    using Observer = std::function<void(std::uint64_t updateBits)>;
    /// Returns a number to remove it by. An observer is called with bits of CommandItem_cls::Update.
    int AddObserver(Observer observer);
    void RemoveObserver(int number);
    /// Hands the pending update bits to the observers and clears them. Nothing happens while a command runs.
    void ExecUpdate();
    void AddUpdateBits(std::uint64_t bits) { mPendingUpdates |= bits; }
    static void SendEventToFrame(int identifier) { EventSink_cls::PostToFrame(identifier); }

    /// For the block markers. Not below 0.
    void ChangeBlockDepth(int change);

  private:
    struct Drag {
        size_t start;  ///< the cursor when it began
        wxString name;
    };

    template <class Walk>
    void Run(const Walk& walk);
    bool RunDo();
    bool RunUndo();
    void TakeBack(size_t cursor, int blockDepth);
    void Erase(size_t i);
    /// Keeps the list within its bound; the last `pending` entries are not done yet.
    void Trim(size_t pending);
    bool IsStepUnderWay() const { return mBlockDepth > 0 || mDrag.has_value(); }
    void DropLongStep();

    UndoHistory_cls mHistory;
    int mBlockDepth = 0;
    std::uint64_t mPendingUpdates = 0;
    std::optional<Drag> mDrag;
    bool mStepTooLong = false;  ///< the step under way has outgrown the list and will be dropped

    bool mRunning = false;  ///< a command is being run
    bool mClearAfterRun = false;
    Command mNested;  ///< pushed by the command that is being run

    std::vector<std::pair<int, Observer>> mObservers;
    int mNextObserver = 0;
};

/// The undo list of the program.
extern UndoManager_cls GCUndoList;

/// A block on the undo list for the length of a scope.
class UndoBlock_cls {
  public:
    explicit UndoBlock_cls(const wxString& name = {}) { GCUndoList.OpenBlock(name); }
    ~UndoBlock_cls() { GCUndoList.CloseBlock(); }
    UndoBlock_cls(const UndoBlock_cls&) = delete;
    UndoBlock_cls& operator=(const UndoBlock_cls&) = delete;
};
