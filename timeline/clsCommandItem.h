#pragma once

#include <wx/string.h>

#include <cstdint>

/// One half of an undoable change: the command that makes it, or the one that takes it back.
/// Every kind of change derives its own class; the undo list owns the commands and runs them.
/// Whatever a command refers to must outlive the list or be looked up anew at every run.
/// Threads: GUI thread only.
/// Failure: an Execute() that throws must leave things as it found them; the list takes back the rest of the
/// step and hands the exception on.
class CommandItem_cls {
  public:
    enum Type : int { kOrdinary = 0, kBlockOpen = 1, kBlockClose = 2 };

    /// Refresh work that a command asks for. The front end's observer of the undo list does it.
    enum Update : int {
        kUpdateTimeline = 1 << 0,  ///< the timeline's areas, lanes and controls
        kUpdatePanels = 1 << 1,    ///< dialogs and panels show their settings anew
        kUpdateRedraw = 1 << 2,    ///< the view panels; posted to the main window at once
        kUpdateKeys = 1 << 3,      ///< keys were changed: values in use are evaluated anew, snapshots tagged
        kUpdateTime = 1 << 6       ///< another instant is shown
    };

    explicit CommandItem_cls(int updateBits = 0, int type = kOrdinary)
        : mCommandType(type), mUpdateBits(updateBits) {}
    virtual ~CommandItem_cls() = default;
    CommandItem_cls(const CommandItem_cls&) = delete;
    CommandItem_cls& operator=(const CommandItem_cls&) = delete;

    /// Does the work and ends with UpdateBit(). `undo` is true when the list runs it to take a step back.
    virtual void Execute(bool undo) = 0;
    /// What the Edit menu calls this change, in English; empty for one that bears no name.
    virtual wxString GetName() const { return {}; }
    /// False for what no project file holds, such as the current frame: it does not make a project unsaved.
    virtual bool ChangesProject() const { return true; }

    int GetCommandType() const { return mCommandType; }

    /// Asks for this command's refresh work.
    void UpdateBit() const { UpdateBit(mUpdateBits); }
    /// Asks for refresh work. A redraw is also posted to the main window, so it comes even from a change that
    /// no step of the list follows.
    static void UpdateBit(int bits);

  private:
    const int mCommandType;
    const int mUpdateBits;
};
