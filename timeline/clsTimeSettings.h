#pragma once

#include <variant>

#include "CONFITEM/clsConfItemList.h"
#include "timeline/clsFrameStepper.h"

/// The numbers of the timeline that undoable commands set.
enum class TimeValue {
    Frame,
    Step,
    WorkAreaMin,
    WorkAreaMax,
    ActiveAreaMin,
    ActiveAreaMax,
    Repeat,
    AnimStep,
    AnimInterp,
    Prefetch,
    MaxFrame,
    UseTimeRemap,
    UseMotionBlur,
    SceneLengthType
};

/// The timeline's settings as a project holds them. Owned by the timeline.
/// Whatever a project says, what is asked here is usable: frames from 0 to the largest int, areas inside the
/// scene with their ends in order, anim step and sub-steps at least 1. The text itself is kept as it was
/// read. Units: frames. Threads: GUI thread only.
class TimeSettings_cls {
  public:
    TimeSettings_cls() { SetToDefault(); }
    TimeSettings_cls(const TimeSettings_cls&) = delete;
    TimeSettings_cls& operator=(const TimeSettings_cls&) = delete;

    void SetToDefault();
    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    int GetMaxFrame() const;
    FrameRange GetWorkArea() const;
    FrameRange GetActiveArea() const;
    int GetAnimStep() const;
    int GetAnimInterp() const;
    bool IsRepeat() const { return mRepeat.mValue; }
    bool IsTimeRemap() const { return mUseTimeRemap.mValue; }
    bool IsMotionBlur() const { return mUseMotionBlur.mValue; }

    /// A setting as it stands in the project; 0 for values that no project holds.
    int Get(TimeValue which);
    /// Frames below 0 are stored as 0, everything else as given.
    void Set(TimeValue which, int value);

  private:
    using Item = std::variant<std::monostate, ConfItemUINT_cls*, ConfItemINT_cls*, ConfItemBOOL_cls*>;
    Item Find(TimeValue which);
    FrameRange InScene(const ConfItemUINT_cls& one, const ConfItemUINT_cls& other) const;

    ConfItemList_cls mItems;
    ConfItemUINT_cls mMaxFrame;
    ConfItemUINT_cls mWorkAreaMin;
    ConfItemUINT_cls mWorkAreaMax;
    ConfItemUINT_cls mActiveAreaMin;
    ConfItemUINT_cls mActiveAreaMax;
    ConfItemBOOL_cls mUseTimeRemap;
    ConfItemBOOL_cls mUseMotionBlur;
    ConfItemINT_cls mAnimStep;
    ConfItemINT_cls mAnimInterp;
    ConfItemBOOL_cls mRepeat;
    ConfItemUINT_cls mSceneLengthType;
};
