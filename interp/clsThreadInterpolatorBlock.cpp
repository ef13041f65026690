#include "interp/clsThreadInterpolatorBlock.h"

#include <algorithm>
#include <array>

#include "data/clsDataLoader.h"

namespace {

constexpr std::array kHalfWidths = {10, 100, 1000, 10000};
/// The search through all of B covers only this part of it: films made so far show it.
constexpr int kFullSearchDivisor = 10;
/// Particles looked up together, so that the processor waits for many table entries at once.
constexpr int kLookUpBlock = 128;

/// What becomes of a difference of positions along an axis of this length. Half a length exactly is no wrap.
struct NoWrap {
    static float Apply(float difference, float) { return difference; }
};
struct MinimumImage {
    static float Apply(float difference, float length) {
        if (difference > 0.5F * length) return difference - length;
        if (difference < -0.5F * length) return difference + length;
        return difference;
    }
};
struct Stay {
    static float Apply(float difference, float length) {
        return difference > 0.5F * length || difference < -0.5F * length ? 0.0F : difference;
    }
};

}  // namespace

void ThreadInterpolatorBlock_cls::SetParameters(const RateArrays_cls& arrays, WorkShares_cls& shares,
                                                int worker, float dt, unsigned int variableNumber,
                                                const PeriodicBoundary_cls::Rule& periodic,
                                                const IDIndex_cls* index) {
    mArrays = arrays;
    mShares = &shares;
    mWorker = worker;
    mDt = dt;
    mVariableNumber = variableNumber;
    mPeriodic = periodic;
    mIndex = index;
}

wxThread::ExitCode ThreadInterpolatorBlock_cls::Entry() {
    int begin = 0;
    int end = 0;
    while (mShares->Take(mWorker, &begin, &end)) {
        if (mVariableNumber == DataLoader_cls::kVariable) {
            InterpolateDataLinearSearchingID(begin, end);
        } else if (mVariableNumber == DataLoader_cls::kSortByID) {
            InterpolateDataLinearSearchingIDSorted(begin, end);
        } else if (mVariableNumber == DataLoader_cls::kConstant) {
            if (mPeriodic.type == PeriodicBoundary_cls::kNone) {
                InterpolateDataLinear(begin, end);
            } else {
                InterpolateDataLinearPeriodic(begin, end);
            }
        }
    }
    return nullptr;
}

bool ThreadInterpolatorBlock_cls::HasKernel() const {
    return mVariableNumber <= DataLoader_cls::kSortByID && ChooseCore() != nullptr;
}

template <class WrapXY, class WrapZ>
inline void ThreadInterpolatorBlock_cls::StoreRates(int i, int j, float dt) {
    const auto a = static_cast<size_t>(i);
    const auto b = static_cast<size_t>(j);
    const float* from = mArrays.mPositionA + 3 * a;
    const float* to = mArrays.mPositionB + 3 * b;
    const float x = WrapXY::Apply(to[0] - from[0], mPeriodic.length[0]) / dt;
    const float y = WrapXY::Apply(to[1] - from[1], mPeriodic.length[1]) / dt;
    const float z = WrapZ::Apply(to[2] - from[2], mPeriodic.length[2]) / dt;
    const float radius = (mArrays.mRadiusB[b] - mArrays.mRadiusA[a]) / dt;
    const float value1 = (mArrays.mValue1B[b] - mArrays.mValue1A[a]) / dt;
    float* velocity = mArrays.mVelocity + 3 * a;
    velocity[0] = x;
    velocity[1] = y;
    velocity[2] = z;
    mArrays.mRadiusWork[a] = radius;
    mArrays.mValue1Work[a] = value1;
}

/// A particle that is not in B stands still.
inline void ThreadInterpolatorBlock_cls::StoreNoRates(int i) {
    const auto a = static_cast<size_t>(i);
    std::fill_n(mArrays.mVelocity + 3 * a, 3, 0.0F);
    mArrays.mRadiusWork[a] = 0.0F;
    mArrays.mValue1Work[a] = 0.0F;
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearCore(int i, int j, float dt) {
    StoreRates<NoWrap, NoWrap>(i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYEeffect0(int i, int j, float dt) {
    StoreRates<MinimumImage, NoWrap>(i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYEeffect1(int i, int j, float dt) {
    StoreRates<Stay, NoWrap>(i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYZEeffect0(int i, int j, float dt) {
    StoreRates<MinimumImage, MinimumImage>(i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYZEeffect1(int i, int j, float dt) {
    StoreRates<Stay, Stay>(i, j, dt);
}

ThreadInterpolatorBlock_cls::Core ThreadInterpolatorBlock_cls::ChooseCore() const {
    using Block = ThreadInterpolatorBlock_cls;
    if (mPeriodic.type == PeriodicBoundary_cls::kNone) return &Block::InterpolateDataLinearCore;
    if (mPeriodic.type > PeriodicBoundary_cls::kSpaceXYZ) return nullptr;
    const bool plane = mPeriodic.type == PeriodicBoundary_cls::kPlaneXY;
    switch (mPeriodic.effect) {
        case PeriodicBoundary_cls::kGuessVelocity:
            return plane ? &Block::InterpolateDataLinearCorePeriodicXYEeffect0
                         : &Block::InterpolateDataLinearCorePeriodicXYZEeffect0;
        case PeriodicBoundary_cls::kZeroVelocity:
            return plane ? &Block::InterpolateDataLinearCorePeriodicXYEeffect1
                         : &Block::InterpolateDataLinearCorePeriodicXYZEeffect1;
        default:
            return nullptr;
    }
}

template <class WrapXY, class WrapZ>
void ThreadInterpolatorBlock_cls::InterpolateSameIndex(int begin, int end) {
    for (int i = begin; i < end; ++i) StoreRates<WrapXY, WrapZ>(i, i, mDt);
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinear(int begin, int end) {
    InterpolateSameIndex<NoWrap, NoWrap>(begin, end);
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearPeriodic(int begin, int end) {
    using Block = ThreadInterpolatorBlock_cls;
    const Core core = ChooseCore();
    if (core == &Block::InterpolateDataLinearCorePeriodicXYEeffect0) {
        InterpolateSameIndex<MinimumImage, NoWrap>(begin, end);
    } else if (core == &Block::InterpolateDataLinearCorePeriodicXYEeffect1) {
        InterpolateSameIndex<Stay, NoWrap>(begin, end);
    } else if (core == &Block::InterpolateDataLinearCorePeriodicXYZEeffect0) {
        InterpolateSameIndex<MinimumImage, MinimumImage>(begin, end);
    } else if (core == &Block::InterpolateDataLinearCorePeriodicXYZEeffect1) {
        InterpolateSameIndex<Stay, Stay>(begin, end);
    }
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearSearchingID(int begin, int end) {
    const Core core = ChooseCore();
    if (!core) return;
    std::array<int32_t, kLookUpBlock> found{};
    for (int block = begin; block < end; block += kLookUpBlock) {
        const int count = std::min(kLookUpBlock, end - block);
        SearchIDs(block, count, found.data());
        for (int k = 0; k < count; ++k) {
            const int j = found[static_cast<size_t>(k)];
            if (j >= 0) {
                (this->*core)(block + k, j, mDt);
            } else {
                StoreNoRates(block + k);
            }
        }
    }
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearSearchingIDSorted(int begin, int end) {
    const Core core = ChooseCore();
    if (!core) return;
    // Every share walks B from its beginning.
    int cursor = 0;
    for (int i = begin; i < end; ++i) {
        const int j = mArrays.mIDA && mArrays.mIDB ? SearchIDFrom(&cursor, mArrays.mIDA[i]) : -1;
        if (j >= 0) {
            (this->*core)(i, j, mDt);
        } else {
            StoreNoRates(i);
        }
    }
}

void ThreadInterpolatorBlock_cls::SearchIDs(int i, int count, int32_t* positions) const {
    const auto blockSize = static_cast<size_t>(count);
    if (!mArrays.mIDA || !mArrays.mIDB) {
        std::fill_n(positions, blockSize, -1);
        return;
    }
    if (!mIndex || !mIndex->IsUnique()) {
        for (int k = 0; k < count; ++k) positions[k] = SearchID(i + k);
        return;
    }
    mIndex->Find({mArrays.mIDA + i, blockSize}, positions);
    const int tenth = mArrays.mCountB / kFullSearchDivisor;
    for (int k = 0; k < count; ++k) {
        const int distance = positions[k] - (i + k);
        const bool near = distance >= -kHalfWidths.back() && distance < kHalfWidths.back();
        positions[k] = near | (positions[k] < tenth) ? positions[k] : -1;
        const int place = std::max(positions[k], 0);
        __builtin_prefetch(mArrays.mPositionB + 3 * static_cast<size_t>(place));
        __builtin_prefetch(mArrays.mRadiusB + place);
        __builtin_prefetch(mArrays.mValue1B + place);
    }
}

int ThreadInterpolatorBlock_cls::SearchID(int i) const {
    const int id = mArrays.mIDA[i];
    if (mArrays.mIDB[i] == id) return i;
    for (const int halfWidth : kHalfWidths) {
        const int j = SearchIDNear(i, id, halfWidth);
        if (j >= 0) return j;
    }
    return SearchIDFull(id);
}

int ThreadInterpolatorBlock_cls::SearchIDNear(int i, int id, int halfWidth) const {
    const int end = i < mArrays.mCountB - halfWidth ? i + halfWidth : mArrays.mCountB;
    return FindFirst(id, std::max(i - halfWidth, 0), end);
}

int ThreadInterpolatorBlock_cls::SearchIDFull(int id) const {
    return FindFirst(id, 0, mArrays.mCountB / kFullSearchDivisor);
}

int ThreadInterpolatorBlock_cls::FindFirst(int id, int begin, int end) const {
    if (mIndex) return mIndex->FindFirst(id, begin, end);
    if (begin >= end) return -1;
    const int32_t* found = std::find(mArrays.mIDB + begin, mArrays.mIDB + end, id);
    return found == mArrays.mIDB + end ? -1 : static_cast<int>(found - mArrays.mIDB);
}

int ThreadInterpolatorBlock_cls::SearchIDFrom(int* cursor, int id) const {
    const int count = mArrays.mCountB;
    const int32_t* ids = mArrays.mIDB;
    if (*cursor >= count || id < ids[*cursor]) return -1;
    int k = *cursor;
    while (k < count && ids[k] < id) ++k;
    if (k < count && ids[k] == id) {
        *cursor = k + 1;
        return k;
    }
    // Past the end, or before the first larger ID: the next search begins at the last smaller one.
    *cursor = k < count ? k - 1 : count;
    return -1;
}
