#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>

#include "timeline/clsCommandItem.h"

/// The list behind undo and redo: pairs of commands in the order of the changes, a cursor that parts what is
/// done from what was undone, and the place at which the project was saved. Runs nothing; UndoManager_cls
/// owns it and walks it.
/// A step is one entry, or a block from its open marker to the close marker that belongs to it.
/// Threads: GUI thread only. Indices beyond the list are the caller's mistake.
class UndoHistory_cls {
  public:
    using Command = std::unique_ptr<CommandItem_cls>;

    /// One change. Held as a pair, so the do list and the undo list are of the same length.
    struct Entry {
        Command doCommand;
        Command undoCommand;
    };

    size_t GetSize() const { return mEntries.size(); }
    /// The number of entries that are done.
    size_t GetCursor() const { return mCursor; }
    void SetCursor(size_t cursor) { mCursor = cursor; }
    const Entry& At(size_t i) const { return mEntries[i]; }
    int GetType(size_t i) const { return mEntries[i].doCommand->GetCommandType(); }

    /// Drops what was undone and appends the entry, which is not done yet.
    void Push(Entry entry);
    void DropRedo();
    /// Puts an entry that is done in its place; `i` is at most the cursor.
    void InsertDone(size_t i, Entry entry);
    void Erase(size_t i);
    /// Forgets the oldest entries, which are done.
    void DropFront(size_t count);
    /// Forgets all entries. The present state counts as saved, or as one that cannot be told from it.
    void Clear(bool saved);

    /// One past the last entry of the step that begins at `begin`; the size when its block is not closed.
    size_t StepEnd(size_t begin) const;
    /// The first entry of the step that ends before `end`, which lies `depth` blocks deep.
    size_t StepBegin(size_t end, int depth) const;
    /// The marker at the other end of a marker's block, nothing for other entries and for unclosed blocks.
    std::optional<size_t> FindPartner(size_t i) const;
    /// The name of the step's block, else of its first command that has one.
    wxString GetStepName(size_t begin, size_t end) const;

    void MarkSaved() { mSaved = mCursor; }
    /// True when a change of the project lies between the present state and the saved one, and when the
    /// saved one has left the list.
    bool IsModified() const { return !mSaved || ChangesProject(*mSaved, mCursor); }

  private:
    bool ChangesProject(size_t one, size_t other) const;

    std::deque<Entry> mEntries;
    size_t mCursor = 0;
    std::optional<size_t> mSaved = 0;  ///< the cursor at the time of saving, none when that state is lost
};
