#include "render/clsShadowSettings.h"

void ShadowSettings_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mLength, "ShadowVolumeLength=", "1000");
    mItems.Add(&mDarkness, "ShadowVolumeDarkness=", "1");
}
