#include "output/clsSampleAverage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// Light of a screen's number, by the sRGB curve.
const std::array<float, 256>& LightOfNumber() {
    static const std::array<float, 256> table = [] {
        std::array<float, 256> light{};
        for (size_t i = 0; i < light.size(); ++i) {
            const double v = static_cast<double>(i) / 255.0;
            light[i] = static_cast<float>(v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4));
        }
        return light;
    }();
    return table;
}

uint8_t NumberOfLight(float light) {
    const double v = light <= 0.0031308F ? 12.92 * static_cast<double>(light)
                                         : 1.055 * std::pow(static_cast<double>(light), 1.0 / 2.4) - 0.055;
    return static_cast<uint8_t>(std::lround(255.0 * std::clamp(v, 0.0, 1.0)));
}

/// The curve the other way, fine enough that it never differs by more than one number where it is steepest.
const std::array<uint8_t, 65537>& NumberTable() {
    static const std::array<uint8_t, 65537> table = [] {
        std::array<uint8_t, 65537> numbers{};
        for (size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = NumberOfLight(static_cast<float>(i) / 65536.0F);
        return numbers;
    }();
    return table;
}

}  // namespace

void SampleAverage_cls::Add(const Picture_cls& picture) {
    if (mSamples == 0) {
        mLight.assign(picture.mRGB.size(), 0.0F);
        mWidth = picture.mWidth;
        mHeight = picture.mHeight;
    }
    const auto& light = LightOfNumber();
    const size_t count = std::min(mLight.size(), picture.mRGB.size());
    for (size_t i = 0; i < count; ++i) mLight[i] += light[picture.mRGB[i]];
    ++mSamples;
}

Picture_cls SampleAverage_cls::Take() {
    Picture_cls picture{std::exchange(mWidth, 0), std::exchange(mHeight, 0)};
    picture.mRGB.resize(mLight.size());
    const auto& numbers = NumberTable();
    const float scale = 65536.0F / static_cast<float>(std::max(mSamples, 1));
    for (size_t i = 0; i < mLight.size(); ++i)
        picture.mRGB[i] = numbers[static_cast<size_t>(std::min(mLight[i] * scale + 0.5F, 65536.0F))];
    mLight.clear();
    mSamples = 0;
    return picture;
}
