#include "render/clsShadowVolume.h"

#include <algorithm>
#include <cmath>

#include "interp/clsThreadSnapInterpolate.h"
#include "render/clsShadowSettings.h"

std::span<const uint8_t> ShadowVolume_cls::FindShadows(std::span<const ArrayAndIndex_cls> entries,
                                                       const float* positions, std::span<const float> radii,
                                                       std::span<const Light> lights) {
    mShadows.assign(entries.size(), 0);
    for (size_t n = 0; n < std::min(lights.size(), kLights); ++n) {
        const LightProjection_cls projection(lights[n]);
        if (!projection.IsValid()) continue;
        mGrid.Build(projection, entries, positions, radii);
        AddShadows(projection, static_cast<uint8_t>(1U << n), entries, positions);
    }
    return mShadows;
}

void ShadowVolume_cls::AddShadows(const LightProjection_cls& light, uint8_t bit,
                                  std::span<const ArrayAndIndex_cls> entries, const float* positions) {
    const float length = mSettings.mLength.mValue;
    ThreadSnapInterpolate_cls::RunAll(static_cast<int>(entries.size()), [&](int begin, int end) {
        for (auto k = static_cast<size_t>(begin); k < static_cast<size_t>(end); ++k) {
            const auto place = light.Project(positions + 3 * static_cast<size_t>(entries[k].mIndex));
            if (place.IsFinite() && mGrid.IsShadowed(place, length)) mShadows[k] |= bit;
        }
    });
}

float ShadowVolume_cls::GetLightInShadow() const {
    const float darkness = mSettings.mDarkness.mValue;
    // Text that is no number reads as one that compares with nothing.
    return darkness > 0.0F ? 1.0F - std::min(darkness, 1.0F) : 1.0F;
}
