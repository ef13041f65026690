#include "pov/clsPovRender.h"

#include <algorithm>

#include "timeline/clsTimeSettings.h"

void PovRender_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mRegion, "PovRenderRegion=", "0");
    mItems.Add(&mCustomMin, "PovRegionCustomMin=", "0");
    mItems.Add(&mCustomMax, "PovRegionCustomMax=", "100");
}

std::vector<int> PovRender_cls::GetFrames(const TimeSettings_cls& timeline) const {
    FrameRange region = timeline.GetWorkArea();
    if (mRegion.mValue == kActiveArea) region = timeline.GetActiveArea();
    if (mRegion.mValue == kCustom) region = {mCustomMin.mValue, mCustomMax.mValue};
    std::vector<int> frames;
    for (int f = std::max(region.first, 0); f <= std::min(region.last, timeline.GetMaxFrame()); ++f)
        frames.push_back(f);
    return frames;
}
