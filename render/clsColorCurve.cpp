#include "render/clsColorCurve.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>

#include "timeline/clsParamEdit.h"

namespace {

/// The curve's axis is not time, so keys are not snapped to the frames of the scene.
constexpr double kNoDisplayStep = 0.0;
constexpr int kChannels = 4;

/// What a curve without keys of its own starts with. The first key is set at the current time, whatever
/// that is when the curve is made.
std::vector<ColorCurve_cls::Key> GreenToRed() {
    return {{Parameters_cls::msCurrentDoubleIndex, 0, 1, 0, 1}, {1, 1, 0, 0, 1}};
}

/// Truncated, not rounded, as colours have always been shown.
unsigned char ToByte(double channel) {
    return channel >= 0.0 ? static_cast<unsigned char>(std::min(channel, 255.0)) : 0;
}

}  // namespace

wxString ColorCurve_cls::GetDependName(unsigned int depend) {
    switch (depend) {
        case kValue1:
            return "VALUE1";
        case kRadius:
            return _("Radius");
        case kPosition:
            return _("Position");
        case kPositionX:
            return _("Position(X)");
        case kPositionY:
            return _("Position(Y)");
        case kPositionZ:
            return _("Position(Z)");
        case kVelocity:
            return _("Velocity");
        case kVelocityX:
            return _("Velocity(X)");
        case kVelocityY:
            return _("Velocity(Y)");
        case kVelocityZ:
            return _("Velocity(Z)");
        case kID:
            return "ID";
        default:
            return {};
    }
}

ColorCurve_cls::ColorCurve_cls(const wxString& prefix, const wxString& displayName,
                               const wxString& constantColor, std::span<const Key> keys,
                               std::shared_ptr<const ParamHost_cls> host)
    : mPrefix(prefix),
      mDisplayName(displayName),
      mDefaultConstantColor(constantColor),
      mDefaultKeys(keys.empty() ? GreenToRed() : std::vector<Key>(keys.begin(), keys.end())),
      mGroup(prefix + " ColorCurve", kChannels, {"R", "G", "B", "A"}, prefix + " ColorCurve", true,
             std::move(host)) {
    SetToDefault();
}

void ColorCurve_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mUseColorCurve, mPrefix + "UseColorCurve=", "0");
    mItems.Add(&mConstantColor, mPrefix + "ConstantColor=", mDefaultConstantColor);
    mItems.Add(&mScalingMin, mPrefix + "ScalingMin=", "0");
    mItems.Add(&mScalingMax, mPrefix + "ScalingMax=", "1");
    mItems.Add(&mDependType, mPrefix + "DependType=", "0");

    for (int channel = 0; channel < kChannels; ++channel) {
        Parameters_cls& parameter = mGroup.GetParameter(channel);
        parameter.SetState({.keys = {}, .timeDependent = true});
        for (const Key& key : mDefaultKeys) {
            const std::array values = {key.r, key.g, key.b, key.a};
            parameter.SetKey(key.position, KeyFrame_cls::kLinear, values[static_cast<size_t>(channel)]);
        }
    }
}

void ColorCurve_cls::PreCalcScaleFactor() {
    mOffset = mScalingMin.mValue;
    mRange = mScalingMax.mValue - mScalingMin.mValue;
    if (mRange != 0.0F) return;
    mRange = 1.0F;
    mScalingMax.mValue = mScalingMin.mValue + 1.0F;
}

void ColorCurve_cls::GetColor4fScaled(float* out, float value) const {
    Evaluate(out, GetPosition(value));
}

void ColorCurve_cls::GetColor4fNormal(float* out, float t) const {
    Evaluate(out, t);
}

void ColorCurve_cls::Evaluate(float* out, double t) const {
    if (!IsOn()) {
        std::copy_n(mConstantColor.mValue.begin(), kChannels, out);
        return;
    }
    // Channel by channel, because to the group as a whole the position -1 means the current time.
    for (int channel = 0; channel < kChannels; ++channel) {
        out[channel] = static_cast<float>(mGroup.GetParameter(channel).Evaluate(t, kNoDisplayStep));
    }
}

wxColour ColorCurve_cls::GetWXColor(const wxColour& background, double t, bool opaque) const {
    std::array<float, kChannels> color{};
    Evaluate(color.data(), t);
    const bool blended = IsOn() && !opaque;
    const std::array below = {background.Red(), background.Green(), background.Blue()};
    std::array<unsigned char, 3> shown{};
    for (size_t k = 0; k < 3; ++k) {
        const double channel = 255.0 * color[k];
        shown[k] = ToByte(blended ? below[k] + (channel - below[k]) * color[3] : channel);
    }
    return {shown[0], shown[1], shown[2]};
}

void ColorCurve_cls::Flip() {
    ParamEdit_cls::ChangeGroup("Flip Color", mGroup, [this] { mGroup.Flip(); });
}

void ColorCurve_cls::SwapRGB() {
    ParamEdit_cls::ChangeGroup("Swap RGB", mGroup, [this] { mGroup.Swap(3); });
}

void ColorCurve_cls::CopyColorFromP(const ColorCurve_cls& source, bool keysOnly) {
    mGroup.CopyParamGroupFromP(source.mGroup);
    if (keysOnly) return;
    // The values alone: a curve that took the keys of the other's lines would be written in its place.
    const auto& from = source.mItems.GetItems();
    for (size_t i = 0; i < from.size(); ++i) mItems.GetItems()[i]->CopyValueFrom(*from[i]);
}

wxString ColorCurve_cls::Serialize() const {
    return mItems.SerializeAll() + mGroup.Serialize();
}

bool ColorCurve_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    return mItems.ReadStrLineAll(line) || mGroup.ReadStrLine(stream, line);
}
