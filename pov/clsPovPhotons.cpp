#include "pov/clsPovPhotons.h"

void PovPhotons_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mType, "PovPhotonsType=", "0");
    mItems.Add(&mCount, "PovPhotonsCount=", "20");
    mItems.Add(&mMaxTrace, "PovPhotonsMaxTrace=", "5");
}
