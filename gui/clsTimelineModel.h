#pragma once

#include "gui/clsTimelineKeys.h"
#include "gui/clsTimelineScale.h"
#include "gui/clsTimelineTree.h"
#include "timeline/clsTimeCtrl.h"

/// What the timeline's parts share: the clock, which frames and lanes are in sight, and the editing of keys.
/// Knows no widget. Owned by the timeline panel. Threads: GUI thread. Units: pixels from the left end of the
/// tracks, frames with a fraction, normalised time.
class TimelineModel_cls {
  public:
    TimelineModel_cls(TimeCtrl_cls& timeCtrl, const std::vector<ParamGroup_cls*>& groups)
        : mTimeCtrl(timeCtrl),
          mTree(groups,
                // The remap curve has a lane only while it is in use.
                [this](const ParamGroup_cls& group) {
                    return &group == &mTimeCtrl.GetRemapGroup() && !mTimeCtrl.GetSettings().IsTimeRemap();
                }),
          mKeys(timeCtrl, mTree) {}
    TimelineModel_cls(const TimelineModel_cls&) = delete;
    TimelineModel_cls& operator=(const TimelineModel_cls&) = delete;

    double ToX(double t) const { return mScale.ToX(t * mTimeCtrl.GetMaxFrame()); }
    /// 0 in a scene without frames.
    double ToTime(double x) const {
        return mTimeCtrl.GetMaxFrame() > 0 ? mScale.ToFrame(x) / mTimeCtrl.GetMaxFrame() : 0.0;
    }
    /// Pixels as a length of time.
    double ToTimeRange(double pixels) const { return ToTime(pixels) - ToTime(0.0); }
    double GetCursorFrame() const {
        return mTimeCtrl.GetFrame() +
               static_cast<double>(mTimeCtrl.GetStep()) / mTimeCtrl.GetSettings().GetAnimInterp();
    }

    /// The row that menus and the curve view work on; null when it is not listed.
    const TimelineTree_cls::Row* GetCurrentRow() const;
    int GetCurrentNumber() const;
    void SetCurrentRow(int number);

    TimeCtrl_cls& mTimeCtrl;
    TimelineScale_cls mScale;
    TimelineTree_cls mTree;
    TimelineKeys_cls mKeys;

  private:
    /// The current row; found again among the listed rows, since its group may be gone.
    TimelineTree_cls::Row mCurrent;
};
