#include "gui/clsFirstColors.h"

#include <array>
#include <optional>
#include <vector>

#include "data/clsDataLoader.h"
#include "data/clsPDataSequence.h"
#include "gui/clsSetting.h"
#include "render/clsColorCurveEdit.h"
#include "render/clsCurveValues.h"
#include "render/clsDrawOption.h"
#include "render/clsGLAttribute.h"
#include "render/clsValueHistogram.h"

namespace {

constexpr const char* kName = "First Colors";

/// Told apart by all eyes, and bright on a dark ground: sky blue, orange, green, yellow.
constexpr Color4 kTypeColors[] = {{0.34F, 0.71F, 0.91F, 1.0F},
                                  {0.90F, 0.62F, 0.0F, 1.0F},
                                  {0.0F, 0.75F, 0.50F, 1.0F},
                                  {0.94F, 0.89F, 0.26F, 1.0F}};
static_assert(std::size(kTypeColors) == PDataSequence_cls::kAttributes);

/// From violet to yellow: brighter with the value, for all eyes, and never as dark as the ground.
constexpr std::array kValueKeys = {
    ColorCurve_cls::Key{0.0, 0.36, 0.24, 0.86, 1.0}, ColorCurve_cls::Key{0.25, 0.66, 0.24, 0.80, 1.0},
    ColorCurve_cls::Key{0.5, 0.90, 0.36, 0.55, 1.0}, ColorCurve_cls::Key{0.75, 0.99, 0.60, 0.32, 1.0},
    ColorCurve_cls::Key{1.0, 0.99, 0.95, 0.35, 1.0}};

struct Part {
    int curve;
    float light;  ///< of the full colour
};
/// Points and billboards show the first, spheres the others. Highlights keep theirs.
constexpr Part kParts[] = {{SnapAttribute_cls::kColor, 1.0F},
                           {SnapAttribute_cls::kAmbient, 0.25F},
                           {SnapAttribute_cls::kDiffuse, 1.0F}};

void SetConstantColor(ColorCurve_cls& curve, Color4 color, float light) {
    for (size_t channel = 0; channel < 3; ++channel) color[channel] *= light;
    SetColorCommand(kName, {curve.mConstantColor.mValue.data(), curve.mConstantColor.dimension}, color,
                    kSettingUpdates);
}

void SetKeys(ColorCurve_cls& curve, double light) {
    auto keys = kValueKeys;
    for (ColorCurve_cls::Key& key : keys) {
        key.r *= light;
        key.g *= light;
        key.b *= light;
    }
    ColorCurveEdit_cls(curve).ApplyTemplate(ColorCurve_cls({}, kName, "1 1 1 1", keys));
}

/// The range of what feeds the curves, the same for all types, so that equal values have equal colours. None
/// when there are no values.
std::optional<ValueHistogram_cls::Range> RangeOf(unsigned int depend, PDataSequence_cls& sequence,
                                                 const SnapData_cls& state, const DrawOption_cls& option) {
    ColorCurve_cls curve({}, kName, "1 1 1 1");
    curve.mDependType.mValue = depend;
    std::vector<float> values = CollectCurveValues(curve, sequence, state, option);
    if (values.empty()) return std::nullopt;
    return ValueHistogram_cls(std::move(values)).GetRange();
}

}  // namespace

unsigned int FirstValue(const DataLoader_cls& loader) {
    if (loader.IsItemExistBody(GrammerBase_cls::kValue1)) return ColorCurve_cls::kValue1;
    if (loader.IsItemExistBody(GrammerBase_cls::kVelocity)) return ColorCurve_cls::kVelocity;
    if (loader.IsItemExistBody(GrammerBase_cls::kRadius)) return ColorCurve_cls::kRadius;
    return ColorCurve_cls::kPositionZ;
}

void ColorByType(PDataSequence_cls& sequence, DrawOption_cls& option) {
    SetValueCommand(kName, option.mClassify.mValue, DrawOption_cls::kAllAttributes, kSettingUpdates);
    for (int type = 0; type < PDataSequence_cls::kAttributes; ++type) {
        for (const Part& part : kParts) {
            ColorCurve_cls& curve = sequence.GetAttribute(type).GetCurve(part.curve);
            SetValueCommand(kName, curve.mUseColorCurve.mValue, false, kSettingUpdates);
            SetConstantColor(curve, kTypeColors[static_cast<size_t>(type)], part.light);
        }
    }
}

void ColorByValue(PDataSequence_cls& sequence, const SnapData_cls& state, const DrawOption_cls& option,
                  const DataLoader_cls& loader) {
    const unsigned int depend = FirstValue(loader);
    const auto range = RangeOf(depend, sequence, state, option);
    if (!range) return;
    for (const auto& attribute : sequence.GetAttributes()) {
        for (const Part& part : kParts) {
            ColorCurve_cls& curve = attribute->GetCurve(part.curve);
            // A curve in use keeps the colours that somebody gave it.
            if (!curve.IsOn()) SetKeys(curve, static_cast<double>(part.light));
            SetValueCommand(kName, curve.mDependType.mValue, depend, kSettingUpdates);
            SetValueCommand(kName, curve.mUseColorCurve.mValue, true, kSettingUpdates);
            SetValueCommand(kName, curve.mScalingMin.mValue, range->min, kSettingUpdates);
            SetValueCommand(kName, curve.mScalingMax.mValue, range->max, kSettingUpdates);
        }
    }
}
