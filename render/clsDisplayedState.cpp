#include "render/clsDisplayedState.h"

#include "data/clsPDataBlock.h"
#include "seam/clsDiagnostics.h"

const SnapData_cls& DisplayedState_cls::Get(const PDataBlock_cls& block, const DrawAttributes_cls& attributes,
                                            double tau, int step) {
    const SnapSource_cls source = SnapSource_cls::Of(block);
    Looks looks = LooksOf(attributes);
    const bool same = !mIsStale && mState.IsItSameSnap(&block, source.time + tau, step) &&
                      mState.GetCount() == source.count && looks == mLooks;
    if (same) return mState;

    SnapAttributes_cls snapAttributes;
    for (size_t i = 0; i < attributes.size(); ++i) snapAttributes[i] = attributes[i]->GetSnapAttribute();
    PrintDiagnostic("MakeSnapshot\n");
    mState.Build(source, snapAttributes, tau, step);
    PrintDiagnostic("MakeSnapshotEnd\n");
    mLooks = std::move(looks);
    mIsStale = false;
    return mState;
}

void DisplayedState_cls::ReleaseIfOf(const PDataBlock_cls& block) {
    if (mState.IsOf(block)) Release();
}

void DisplayedState_cls::Release() {
    mState.ReleaseData();
    mIsStale = true;
}

DisplayedState_cls::Looks DisplayedState_cls::LooksOf(const DrawAttributes_cls& attributes) {
    Looks looks;
    for (size_t i = 0; i < looks.size(); ++i) {
        looks[i].drawType = attributes[i]->mDrawType.mValue;
        looks[i].alpha = attributes[i]->GetAlpha();
        for (int number = 0; number < SnapAttribute_cls::kCurveCount; ++number) {
            const ColorCurve_cls& curve = attributes[i]->GetCurve(number);
            Look::Curve& look = looks[i].curves.at(static_cast<size_t>(number));
            look.isOn = curve.IsOn();
            look.depend = curve.mDependType.mValue;
            look.min = curve.mScalingMin.mValue;
            look.max = curve.mScalingMax.mValue;
            look.constant.assign(curve.mConstantColor.mValue.begin(), curve.mConstantColor.mValue.end());
            for (int channel = 0; channel < 4; ++channel) {
                look.keys.at(static_cast<size_t>(channel)) =
                    curve.GetParamGroup().GetParameter(channel).GetKeys();
            }
        }
    }
    return looks;
}
