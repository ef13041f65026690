#pragma once

#include "render/clsShadowGrid.h"

class ShadowSettings_cls;

/// Which particles of a frame stand in the shadow that spheres throw, for each light.
/// The shadow volume of a sphere begins at its centre and leads away from the light for
/// "ShadowVolumeLength=": a cylinder in light from a direction, a cone in light from a place. A particle is
/// in it when its centre is. Nothing shadows itself or what is beside it, and a sphere with the light inside
/// throws no shadow.
/// Owned by whoever draws; memory is kept between frames.
/// Threads: GUI thread; large frames fan out to four threads, and all calls return when they are done.
/// Units: the data's own lengths.
/// Failure: std::bad_alloc. Particles and lights with numbers that are not finite throw no shadow and are in
/// none.
class ShadowVolume_cls {
  public:
    using Light = LightProjection_cls::Light;
    static constexpr size_t kLights = 8;

    explicit ShadowVolume_cls(const ShadowSettings_cls& settings) : mSettings(settings) {}

    /// For each entry the lights whose shadow it is in: bit n stands for lights[n]. `radii` holds the drawn
    /// radius of every entry that is drawn as a sphere, 0 for the others, which throw no shadow. Lights
    /// beyond the eighth are ignored. Valid until the next call.
    std::span<const uint8_t> FindShadows(std::span<const ArrayAndIndex_cls> entries, const float* positions,
                                         std::span<const float> radii, std::span<const Light> lights);
    /// What is left of a light's diffuse and specular part in its shadow, 0 to 1, by "ShadowVolumeDarkness=".
    float GetLightInShadow() const;

  private:
    void AddShadows(const LightProjection_cls& light, uint8_t bit, std::span<const ArrayAndIndex_cls> entries,
                    const float* positions);

    const ShadowSettings_cls& mSettings;
    ShadowGrid_cls mGrid;
    std::vector<uint8_t> mShadows;
};
