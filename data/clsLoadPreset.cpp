#include "data/clsLoadPreset.h"

#include <algorithm>

namespace {

std::vector<int> HeaderList(const std::vector<int>& head) {
    return head.empty() ? std::vector<int>{LoadPreset_cls::kNoHeader} : head;
}

}  // namespace

bool LoadPreset_cls::IsLayoutOf(const DataLoader_cls& loader) const {
    return mText == loader.IsText() && std::ranges::equal(HeaderList(mHead), loader.GetHeaderGrammer()) &&
           std::ranges::equal(mBody, loader.GetBodyGrammer());
}

void LoadPreset_cls::ApplyTo(DataLoader_cls& loader) const {
    loader.SetText(mText);
    loader.SetHeaderGrammer(HeaderList(mHead));
    loader.SetBodyGrammer(mBody);
    loader.mInterpolateType.mValue = mInterpolateType;
    loader.mVariableNumber.mValue = mVariableNumber;
}

const std::vector<LoadPreset_cls>& LoadPreset_cls::GetKnown() {
    using Loader = DataLoader_cls;
    static const std::vector<LoadPreset_cls> known = {
        {"40-byte record", false, {0, 1}, {0, 1, 5, 6, 7, 8}, Loader::kHermite},
        // The time is a double, which has no code, so velocities do not fit the snapshots' numbers.
        {"Tipsy dark particles", false, {2, 2, 1, 2, 2, 2, 2, 2}, {2, 0, 1, 5, 8}},
        {"Columns x y z", true, {}, {0}},
        {"Columns x y z value", true, {}, {0, 8}},
        {"Columns x y z vx vy vz", true, {}, {0, 1}},
        {"XYZ", true, {1, 2}, {7, 0}},
        {"LAMMPS dump: id type x y z",
         true,
         {2, 0, 2, 1, 2, 2, 2, 2, 2},
         {6, 7, 0},
         Loader::kLinear,
         Loader::kVariable},
    };
    return known;
}
