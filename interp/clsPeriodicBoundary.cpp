#include "interp/clsPeriodicBoundary.h"

void PeriodicBoundary_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mType, "PeriodicType=", "0");
    mItems.Add(&mSize, "PeriodicSize=", "1 1 1");
    mItems.Add(&mEffect, "PeriodicEffect=", "0");
    mItems.Add(&mBaseVector[0], "PeriodicBaseVector0=", "10 0 0");
    mItems.Add(&mBaseVector[1], "PeriodicBaseVector1=", "0 10 0");
    mItems.Add(&mBaseVector[2], "PeriodicBaseVector2=", "0 0 10");
}

void PeriodicBoundary_cls::SetBox(bool space, const std::array<float, 3>& length) {
    mType.mValue = space ? kSpaceXYZ : kPlaneXY;
    for (size_t axis = 0; axis < 3; ++axis) {
        mSize.mValue[axis] = 1.0F;
        for (size_t component = 0; component < 3; ++component)
            mBaseVector[axis].mValue[component] = component == axis ? length[axis] : 0.0F;
    }
}

void PeriodicBoundary_cls::GetBoundaryVector(float* out, int k) const {
    const ConfItemFLOATARRAY_cls& base = mBaseVector.at(static_cast<size_t>(k));
    for (size_t axis = 0; axis < 3; ++axis) out[axis] = mSize.mValue[axis] * base.mValue[axis];
}

PeriodicBoundary_cls::Rule PeriodicBoundary_cls::GetRule() const {
    Rule rule{.type = mType.mValue, .effect = mEffect.mValue};
    for (int axis = 0; axis < 3; ++axis) {
        std::array<float, 3> edge{};
        GetBoundaryVector(edge.data(), axis);
        rule.length[static_cast<size_t>(axis)] = edge[static_cast<size_t>(axis)];
    }
    return rule;
}
