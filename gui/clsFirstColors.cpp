#include "gui/clsFirstColors.h"

#include <vector>

#include "data/clsDataLoader.h"
#include "data/clsPDataSequence.h"
#include "gui/clsSetting.h"
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

unsigned int ValueOf(const DataLoader_cls& loader) {
    if (loader.IsItemExistBody(GrammerBase_cls::kValue1)) return ColorCurve_cls::kValue1;
    if (loader.IsItemExistBody(GrammerBase_cls::kVelocity)) return ColorCurve_cls::kVelocity;
    if (loader.IsItemExistBody(GrammerBase_cls::kRadius)) return ColorCurve_cls::kRadius;
    return ColorCurve_cls::kPositionZ;
}

}  // namespace

void ColorByType(PDataSequence_cls& sequence, DrawOption_cls& option) {
    SetValueCommand(kName, option.mClassify.mValue, DrawOption_cls::kAllAttributes, kSettingUpdates);
    for (int type = 0; type < PDataSequence_cls::kAttributes; ++type) {
        ColorCurve_cls& curve = sequence.GetAttribute(type).GetCurve(SnapAttribute_cls::kColor);
        SetValueCommand(kName, curve.mUseColorCurve.mValue, false, kSettingUpdates);
        SetColorCommand(kName, {curve.mConstantColor.mValue.data(), curve.mConstantColor.dimension},
                        kTypeColors[static_cast<size_t>(type)], kSettingUpdates);
    }
}

void ColorByValue(PDataSequence_cls& sequence, const SnapData_cls& state, DrawOption_cls& option,
                  const DataLoader_cls& loader) {
    // One range for all types, so that equal values have equal colours.
    std::vector<float> all;
    for (const auto& attribute : sequence.GetAttributes()) {
        ColorCurve_cls& curve = attribute->GetCurve(SnapAttribute_cls::kColor);
        SetValueCommand(kName, curve.mDependType.mValue, ValueOf(loader), kSettingUpdates);
        const auto values = CollectCurveValues(curve, sequence, state, option);
        all.insert(all.end(), values.begin(), values.end());
        if (option.mClassify.mValue == DrawOption_cls::kAttribute0Only) break;
    }
    if (all.empty()) return;
    const ValueHistogram_cls::Range range = ValueHistogram_cls(std::move(all)).GetRange();
    for (const auto& attribute : sequence.GetAttributes()) {
        ColorCurve_cls& curve = attribute->GetCurve(SnapAttribute_cls::kColor);
        SetValueCommand(kName, curve.mDependType.mValue, ValueOf(loader), kSettingUpdates);
        SetValueCommand(kName, curve.mUseColorCurve.mValue, true, kSettingUpdates);
        SetValueCommand(kName, curve.mScalingMin.mValue, range.min, kSettingUpdates);
        SetValueCommand(kName, curve.mScalingMax.mValue, range.max, kSettingUpdates);
    }
}
