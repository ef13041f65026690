#include "pov/clsPovRender.h"

void PovRender_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mRegion, "PovRenderRegion=", "0");
    mItems.Add(&mCustomMin, "PovRegionCustomMin=", "0");
    mItems.Add(&mCustomMax, "PovRegionCustomMax=", "100");
}
