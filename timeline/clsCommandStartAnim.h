#pragma once

#include "timeline/clsCommandItem.h"

class TimeCtrl_cls;

/// Starts playback. Its way back is CommandStopAnim_cls, so that undoing it stops. The timeline must outlive
/// the undo list's entries.
class CommandStartAnim_cls final : public CommandItem_cls {
  public:
    CommandStartAnim_cls(TimeCtrl_cls& timeCtrl, int increment)
        : CommandItem_cls(kUpdateTimeline), mTimeCtrl(timeCtrl), mIncrement(increment) {}

    void Execute(bool undo) override;
    wxString GetName() const override { return "Play"; }
    bool ChangesProject() const override { return false; }

  private:
    TimeCtrl_cls& mTimeCtrl;
    const int mIncrement;
};
