#include "interp/clsSnapData.h"

#include <algorithm>
#include <new>

#include "interp/clsThreadSnapInterpolate.h"

namespace {

/// Makes room for the particles. Memory that is large enough, but not far too large, is kept as it is.
void Reserve(LargeMemory_cls& memory, size_t bytes) {
    if (memory.GetByte() >= bytes && memory.GetByte() / 2 <= bytes) return;
    memory = LargeMemory_cls();  // first, so that old and new are never there together
    memory = LargeMemory_cls(bytes);
}

}  // namespace

void SnapData_cls::Build(const SnapSource_cls& source, const SnapAttributes_cls& attributes, double tau,
                         int stride) {
    mSource = source;
    mSource.count = std::max(source.count, 0);
    mTime = source.time + tau;
    mStride = std::max(stride, 1);
    mValue1DashFilled = false;
    if (!Allocate(mSource.count)) mSource.count = 0;

    if (tau == 0.0 && !IsInterpolateRequired(attributes)) {
        InterpolateNot(attributes);
    } else {
        Interpolate(attributes, tau);
    }
}

bool SnapData_cls::Allocate(int count) {
    const auto n = static_cast<size_t>(count);
    mAllocated = false;
    try {
        Reserve(mPosition, 3 * n * sizeof(float));
        Reserve(mRadius, n * sizeof(float));
        Reserve(mValue1, n * sizeof(float));
        Reserve(mColor, 4 * n * sizeof(float));
    } catch (const std::bad_alloc&) {
        return false;
    }
    mAllocated = count > 0;
    return true;
}

bool SnapData_cls::AllocateValue1Dash() const {
    try {
        Reserve(mValue1Dash, static_cast<size_t>(mSource.count) * sizeof(float));
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

void SnapData_cls::ReleaseData() {
    mSource = {};
    mAllocated = false;
    mValue1DashFilled = false;
    for (LargeMemory_cls* array : {&mPosition, &mRadius, &mValue1, &mValue1Dash, &mColor})
        *array = LargeMemory_cls();
}

bool SnapData_cls::IsInterpolateRequired(const SnapAttributes_cls& attributes) {
    const auto isDerived = [](const ColorCurve_cls* curve) {
        return curve->mDependType.mValue >= ColorCurve_cls::kPosition;
    };
    return std::any_of(attributes.begin(), attributes.end(), [&](const SnapAttribute_cls& attribute) {
        const auto& curves = attribute.curves;
        switch (attribute.drawType) {
            case SnapAttribute_cls::kPoint:
            case SnapAttribute_cls::kBillboard:
            case SnapAttribute_cls::kBoth:
                return isDerived(curves[SnapAttribute_cls::kColor]);
            case SnapAttribute_cls::kSphere:
                return isDerived(curves[SnapAttribute_cls::kAmbient]) ||
                       isDerived(curves[SnapAttribute_cls::kDiffuse]) ||
                       isDerived(curves[SnapAttribute_cls::kSpecular]);
            default:
                return false;
        }
    });
}

void SnapData_cls::SetPValue1(const float** out, const SnapAttribute_cls& attribute, int curve) const {
    const unsigned int depend = attribute.curves.at(static_cast<size_t>(curve))->mDependType.mValue;
    *out = nullptr;
    if (depend == ColorCurve_cls::kValue1) {
        *out = GetValue1();
    } else if (depend == ColorCurve_cls::kRadius) {
        *out = GetRadius();
    } else if (depend < ColorCurve_cls::kDependCount) {
        SetValue1Dash(depend);
        if (mValue1DashFilled) *out = GetValue1Dash();
    }
}

void SnapData_cls::SetValue1Dash(unsigned int source) const {
    const bool isDerived = source >= ColorCurve_cls::kPosition && source < ColorCurve_cls::kDependCount;
    if (mValue1DashFilled || !isDerived || !AllocateValue1Dash()) return;
    ThreadSnapInterpolate_cls::RunAll(mSource.count, [&](int begin, int end) {
        SnapPass_cls::Derive(mSource, source, mVisitedStride, mValue1Dash.As<float>(), begin, end);
    });
    mValue1DashFilled = true;
}

SnapPass_cls SnapData_cls::MakePass(const SnapAttributes_cls& attributes) {
    SnapPass_cls pass{.source = mSource,
                      .stride = mVisitedStride,
                      .position = mPosition.As<float>(),
                      .radius = mRadius.As<float>(),
                      .value1 = mValue1.As<float>(),
                      .color = mColor.As<float>()};
    for (size_t type = 0; type < attributes.size(); ++type) {
        const SnapAttribute_cls& attribute = attributes[type];
        ColorCurve_cls& curve = *attribute.curves[SnapAttribute_cls::kColor];
        SnapPass_cls::Paint& paint = pass.paints[type];
        curve.PreCalcScaleFactor();
        paint.curve.emplace(curve);
        for (size_t k = 0; k < 4; ++k) paint.constant[k] = curve.mConstantColor.mValue[k];
        SetPValue1(&paint.value, attribute, SnapAttribute_cls::kColor);
        paint.scale[3] = attribute.alphaType == SnapAttribute_cls::kDependOnRadius
                             ? attribute.alphaDependBase * attribute.alphaDependBase
                             : attribute.alphaFactor;
    }
    return pass;
}

void SnapData_cls::Interpolate(const SnapAttributes_cls& attributes, double tau) {
    mVisitedStride = mStride;
    SnapPass_cls pass = MakePass(attributes);
    pass.tau = static_cast<float>(tau);
    ThreadSnapInterpolate_cls::RunAll(mSource.count,
                                      [&](int begin, int end) { pass.InterpolateDataLinear(begin, end); });
}

void SnapData_cls::InterpolateNot(const SnapAttributes_cls& attributes) {
    mVisitedStride = 1;
    const SnapPass_cls pass = MakePass(attributes);
    ThreadSnapInterpolate_cls::RunAll(mSource.count, [&](int begin, int end) { pass.Copy(begin, end); });
}
