#include "render/clsDrawOrder.h"

#include <algorithm>

#include "render/clsDrawOption.h"
#include "seam/clsClock.h"

namespace {
/// Entries between two breaths.
constexpr long long kBlock = 65536;
}  // namespace

std::span<ArrayAndIndex_cls> DrawOrder_cls::ZSortAtFBO0(int count, int step, const float* positions,
                                                        unsigned int sortOrder, const View& view) {
    count = std::max(count, 0);
    step = std::max(step, 1);
    mEntries.Reserve(static_cast<size_t>(count / step) + 1);
    size_t entries = 0;
    switch (sortOrder) {
        case DrawOption_cls::kNoSort:
            entries = CheckRegions(FillUnsorted(count, step));
            break;
        case DrawOption_cls::kSortTransparent: {
            const auto mode =
                view.mIsOrthographic ? ZSort_cls::Mode::kProjection : ZSort_cls::Mode::kFarFirst;
            entries = CheckRegions(ZSort_cls::ZSortPrepare(mEntries.Get(), count, step, positions,
                                                           view.mCamera, view.mDirection, mode, view.mUnit));
            mZSort.Sort(mEntries, entries);
            break;
        }
        case DrawOption_cls::kSortSolid: {
            // Up to the next multiple of the step, so that the last thinned particle is one of them.
            const long long whole = (static_cast<long long>(count) + step - 1) / step * step;
            entries = ZSort_cls::ZSortPrepare(mEntries.Get(), whole, step, positions, view.mCamera,
                                              view.mDirection, ZSort_cls::Mode::kNearFirst, view.mUnit);
            mZSort.Sort(mEntries, entries);
            break;
        }
        default:
            break;
    }
    return {mEntries.Get(), entries};
}

size_t DrawOrder_cls::FillUnsorted(int count, int step) {
    ArrayAndIndex_cls* entry = mEntries.Get();
    for (long long i = 0; i < count;) {
        const long long end = std::min<long long>(i + kBlock * step, count);
        for (; i < end; i += step)
            *entry++ = {.mIndex = static_cast<int32_t>(i), .mKey = 0.0F, .mAlpha = 1.0F};
        Clock_cls::Current().Breathe();
    }
    return static_cast<size_t>(entry - mEntries.Get());
}

size_t DrawOrder_cls::CheckRegions(size_t entries) const {
    return mRegionCheck ? std::min(mRegionCheck({mEntries.Get(), entries}), entries) : entries;
}
