#include "timeline/clsCommandStartAnim.h"

#include "timeline/clsTimeCtrl.h"

void CommandStartAnim_cls::Execute(bool) {
    mTimeCtrl.StartPlay(mIncrement);
    UpdateBit();
}
