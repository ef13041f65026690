#include "timeline/clsCommandStopAnim.h"

#include "timeline/clsTimeCtrl.h"

void CommandStopAnim_cls::Execute(bool) {
    mTimeCtrl.StopAnimationAt(mFrame);
    UpdateBit();
}
