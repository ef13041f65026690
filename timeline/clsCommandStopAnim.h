#pragma once

#include "timeline/clsCommandItem.h"

class TimeCtrl_cls;

/// Stops playback at a frame: the one it has reached, or, as the way back of a start, the one it began at.
/// The timeline must outlive the undo list's entries.
class CommandStopAnim_cls final : public CommandItem_cls {
  public:
    CommandStopAnim_cls(TimeCtrl_cls& timeCtrl, int frame)
        : CommandItem_cls(kUpdateTimeline), mTimeCtrl(timeCtrl), mFrame(frame) {}

    void Execute(bool undo) override;
    wxString GetName() const override { return "Stop"; }
    bool ChangesProject() const override { return false; }

  private:
    TimeCtrl_cls& mTimeCtrl;
    const int mFrame;
};
