#include "render/clsCurveValues.h"

#include "data/clsPDataSequence.h"
#include "interp/clsSnapData.h"
#include "render/clsDrawOption.h"
#include "render/clsGLAttribute.h"

namespace {

constexpr int kAllTypes = -1;

/// The type whose attribute owns the curve.
int TypeOf(const ColorCurve_cls& curve, PDataSequence_cls& sequence, const DrawOption_cls& option) {
    if (option.mClassify.mValue == DrawOption_cls::kAttribute0Only) return kAllTypes;
    for (int type = 0; type < PDataSequence_cls::kAttributes; ++type) {
        for (int which = 0; which < SnapAttribute_cls::kCurveCount; ++which) {
            if (&sequence.GetAttribute(type).GetCurve(which) == &curve) return type;
        }
    }
    return kAllTypes;
}

}  // namespace

std::vector<float> CollectCurveValues(const ColorCurve_cls& curve, PDataSequence_cls& sequence,
                                      const SnapData_cls& state, const DrawOption_cls& option) {
    const auto count = static_cast<size_t>(state.GetCount());
    const unsigned int depend = curve.mDependType.mValue;
    if (count == 0 || depend >= ColorCurve_cls::kDependCount) return {};

    const float* source = state.GetValue1();
    std::vector<float> derived;
    if (depend == ColorCurve_cls::kRadius) source = state.GetRadius();
    if (depend >= ColorCurve_cls::kPosition) {
        derived.resize(count);
        SnapPass_cls::Derive(state.GetSource(), depend, state.GetStride(), derived.data(), 0,
                             state.GetCount());
        source = derived.data();
    }

    const int wanted = TypeOf(curve, sequence, option);
    const auto step = static_cast<size_t>(state.GetStride());
    std::vector<float> values;
    values.reserve(count / step + 1);
    for (size_t i = 0; i < count; i += step) {
        const int type = state.GetType()[i] < PDataSequence_cls::kAttributes ? state.GetType()[i] : 0;
        if (wanted == kAllTypes || type == wanted) values.push_back(source[i]);
    }
    return values;
}
