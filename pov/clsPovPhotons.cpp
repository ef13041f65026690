#include "pov/clsPovPhotons.h"

#include <algorithm>

void PovPhotons_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mType, "PovPhotonsType=", "0");
    mItems.Add(&mCount, "PovPhotonsCount=", "20");
    mItems.Add(&mMaxTrace, "PovPhotonsMaxTrace=", "5");
}

wxString PovPhotons_cls::GetStrScene() const {
    if (!IsOn()) return {};
    return wxString::Format("  photons {\n    count %d\n    max_trace_level %d\n  }\n",
                            1000 * std::clamp(mCount.mValue, 1, 100000),
                            std::clamp(mMaxTrace.mValue, 1, 256));
}
