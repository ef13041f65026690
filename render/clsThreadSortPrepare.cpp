#include "render/clsThreadSortPrepare.h"

template <class Key>
void ThreadSortPrepare_cls::Fill(const Key& key) const {
    ArrayAndIndex_cls* entry = mTask.entries + mTask.begin / mTask.step;
    const float* position = mTask.positions + 3 * mTask.begin;
    for (long long i = mTask.begin; i < mTask.end; i += mTask.step) {
        *entry++ = {.mIndex = static_cast<int32_t>(i), .mKey = key(position), .mAlpha = 1.0F};
        position += 3 * mTask.step;
    }
}

void ThreadSortPrepare_cls::Work() {
    const auto [cx, cy, cz] = mTask.camera;
    const auto [dx, dy, dz] = mTask.direction;
    const auto squaredDistance = [cx, cy, cz, unit = mTask.unit](const float* p) {
        const float x = (p[0] - cx) * unit;
        const float y = (p[1] - cy) * unit;
        const float z = (p[2] - cz) * unit;
        return x * x + y * y + z * z;
    };
    switch (mTask.mode) {
        case kProjection:
            return Fill([dx, dy, dz](const float* p) { return -(p[0] * dx + p[1] * dy + p[2] * dz); });
        case kFarFirst:
            return Fill([squaredDistance](const float* p) { return -squaredDistance(p); });
        case kNearFirst:
            return Fill(squaredDistance);
    }
}
