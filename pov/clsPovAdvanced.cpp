#include "pov/clsPovAdvanced.h"

void PovAdvanced_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mMaxTraceLevel, "PovMaxTraceLevel=", "12");
}
