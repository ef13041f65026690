#pragma once

#include "timeline/clsCommandItem.h"
#include "timeline/clsTimeSettings.h"

class TimeCtrl_cls;

/// Sets one number of the timeline, which must outlive the undo list's entries.
class CommandSetTimeCtrlValue_cls final : public CommandItem_cls {
  public:
    CommandSetTimeCtrlValue_cls(TimeCtrl_cls& timeCtrl, TimeValue which, int value);

    void Execute(bool undo) override;
    wxString GetName() const override;
    /// The current frame and the prefetch are not kept in projects.
    bool ChangesProject() const override;

  private:
    TimeCtrl_cls& mTimeCtrl;
    const TimeValue mWhich;
    const int mValue;
};
