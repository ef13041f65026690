#pragma once

#include <algorithm>

#include "CONFITEM/clsConfItemList.h"

/// The user's preferences: memory, threads, precision, pictures, mouse and autosave. Kept with the project.
/// Owned by the application core, which hands a new memory limit and thread number on. Threads: GUI thread.
class Preference_cls {
  public:
    /// Merge step of the parallel depth sort: 1, 10, 100 or 1000 entries at a time.
    enum SortType : unsigned int {
        kPrecise = 0,
        kApproximate10 = 1,
        kApproximate100 = 2,
        kApproximate1000 = 3
    };

    /// A mouse button with a modifier, as a gesture is bound to it.
    enum MouseGrip : unsigned int { kLeft, kMiddle, kRight, kShiftLeft, kCtrlLeft, kAltLeft, kGripCount };
    enum class MouseGesture { None, Turn, Pan, Zoom };

    Preference_cls() { SetToDefault(); }
    Preference_cls(const Preference_cls&) = delete;
    Preference_cls& operator=(const Preference_cls&) = delete;

    void SetToDefault();
    /// Entries that the merge of a depth sort moves at once; 1 for unknown sort types.
    int GetMergeStep() const;
    /// What a drag with this grip does; with two gestures bound to one grip, the first in the order turn,
    /// pan, zoom.
    MouseGesture GetGesture(MouseGrip grip) const;
    int GetJpegQuality() const { return std::clamp(mJpegQuality.mValue, 1, 100); }
    /// Minutes; 0 for never.
    int GetAutosaveInterval() const { return std::max(mAutosaveInterval.mValue, 0); }

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }
    ConfItemList_cls& GetItems() { return mItems; }

    ConfItemINT_cls mMemoryLimit;    ///< MB that snapshots may take, "Critical"
    ConfItemINT_cls mReaderThreads;  ///< "Thread (I/O)": workers that parse a text body
    ConfItemUINT_cls mSortType;
    ConfItemINT_cls mJpegQuality;  ///< 1 to 100
    ConfItemUINT_cls mMouseTurn;   ///< MouseGrip
    ConfItemUINT_cls mMousePan;
    ConfItemUINT_cls mMouseZoom;
    ConfItemINT_cls mAutosaveInterval;

  private:
    ConfItemList_cls mItems;
};
