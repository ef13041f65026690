#include "interp/clsThreadInterpolatorBlock.h"

#include <algorithm>
#include <array>

#include "data/clsDataLoader.h"

namespace {

/// How many matches before its use a particle is fetched from memory.
constexpr size_t kAhead = 12;
/// Particles looked up together, so that the processor waits for many table entries at once.
constexpr int kLookUpBlock = 1024;

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
    mKernel = ChooseKernel();
}

wxThread::ExitCode ThreadInterpolatorBlock_cls::Entry() {
    int begin = 0;
    int end = 0;
    while (mKernel && mShares->Take(mWorker, &begin, &end)) {
        if (mVariableNumber == DataLoader_cls::kVariable) {
            InterpolateDataLinearSearchingID(begin, end);
        } else if (mVariableNumber == DataLoader_cls::kSortByID) {
            InterpolateDataLinearSearchingIDSorted(begin, end);
        } else {
            InterpolateSameIndex(begin, end);
        }
    }
    return nullptr;
}

/// Everything is handed over by value: what the rates are stored into could otherwise be the settings
/// themselves to the compiler, and it would read them anew for every particle.
template <class WrapXY, class WrapZ>
inline void ThreadInterpolatorBlock_cls::StoreRates(RateArrays_cls arrays, std::array<float, 3> length, int i,
                                                    int j, float dt) {
    const auto a = static_cast<size_t>(i);
    const auto b = static_cast<size_t>(j);
    const float* from = arrays.mPositionA + 3 * a;
    const float* to = arrays.mPositionB + 3 * b;
    const float x = WrapXY::Apply(to[0] - from[0], length[0]) / dt;
    const float y = WrapXY::Apply(to[1] - from[1], length[1]) / dt;
    const float z = WrapZ::Apply(to[2] - from[2], length[2]) / dt;
    const float radius = (arrays.mRadiusB[b] - arrays.mRadiusA[a]) / dt;
    const float value1 = (arrays.mValue1B[b] - arrays.mValue1A[a]) / dt;
    float* velocity = arrays.mVelocity + 3 * a;
    velocity[0] = x;
    velocity[1] = y;
    velocity[2] = z;
    arrays.mRadiusWork[a] = radius;
    arrays.mValue1Work[a] = value1;
}

template <class WrapXY, class WrapZ>
void ThreadInterpolatorBlock_cls::StoreRange(int begin, int end) {
    const RateArrays_cls arrays = mArrays;
    const auto length = mPeriodic.length;
    const float dt = mDt;
    for (int i = begin; i < end; ++i) StoreRates<WrapXY, WrapZ>(arrays, length, i, i, dt);
}

inline void ThreadInterpolatorBlock_cls::Prefetch(const RateArrays_cls& arrays, const IDMatch_cls& match) {
    const auto a = static_cast<size_t>(match.i);
    const auto b = static_cast<size_t>(match.j);
    __builtin_prefetch(arrays.mPositionA + 3 * a);
    __builtin_prefetch(arrays.mRadiusA + a);
    __builtin_prefetch(arrays.mValue1A + a);
    __builtin_prefetch(arrays.mPositionB + 3 * b);
    __builtin_prefetch(arrays.mRadiusB + b);
    __builtin_prefetch(arrays.mValue1B + b);
}

template <class WrapXY, class WrapZ>
void ThreadInterpolatorBlock_cls::StoreMatches(const IDMatch_cls* matches, size_t count) {
    const RateArrays_cls arrays = mArrays;
    const auto length = mPeriodic.length;
    const float dt = mDt;
    for (size_t m = 0; m < count; ++m) {
        if (m + kAhead < count) Prefetch(arrays, matches[m + kAhead]);
        StoreRates<WrapXY, WrapZ>(arrays, length, matches[m].i, matches[m].j, dt);
    }
}

/// Particles that are not in B stand still.
void ThreadInterpolatorBlock_cls::StoreNoRates(int begin, int end) {
    std::fill(mArrays.mVelocity + 3 * static_cast<size_t>(begin),
              mArrays.mVelocity + 3 * static_cast<size_t>(end), 0.0F);
    std::fill(mArrays.mRadiusWork + begin, mArrays.mRadiusWork + end, 0.0F);
    std::fill(mArrays.mValue1Work + begin, mArrays.mValue1Work + end, 0.0F);
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearCore(int i, int j, float dt) {
    StoreRates<NoWrap, NoWrap>(mArrays, mPeriodic.length, i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYEeffect0(int i, int j, float dt) {
    StoreRates<MinimumImage, NoWrap>(mArrays, mPeriodic.length, i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYEeffect1(int i, int j, float dt) {
    StoreRates<Stay, NoWrap>(mArrays, mPeriodic.length, i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYZEeffect0(int i, int j, float dt) {
    StoreRates<MinimumImage, MinimumImage>(mArrays, mPeriodic.length, i, j, dt);
}
void ThreadInterpolatorBlock_cls::InterpolateDataLinearCorePeriodicXYZEeffect1(int i, int j, float dt) {
    StoreRates<Stay, Stay>(mArrays, mPeriodic.length, i, j, dt);
}

const ThreadInterpolatorBlock_cls::Kernel* ThreadInterpolatorBlock_cls::ChooseKernel() const {
    using Block = ThreadInterpolatorBlock_cls;
    static constexpr Kernel plain = {&Block::InterpolateDataLinearCore, &Block::StoreRange<NoWrap, NoWrap>,
                                     &Block::StoreMatches<NoWrap, NoWrap>};
    // By type (plane, space) and effect.
    static constexpr Kernel periodic[2][2] = {
        {{&Block::InterpolateDataLinearCorePeriodicXYEeffect0, &Block::StoreRange<MinimumImage, NoWrap>,
          &Block::StoreMatches<MinimumImage, NoWrap>},
         {&Block::InterpolateDataLinearCorePeriodicXYEeffect1, &Block::StoreRange<Stay, NoWrap>,
          &Block::StoreMatches<Stay, NoWrap>}},
        {{&Block::InterpolateDataLinearCorePeriodicXYZEeffect0,
          &Block::StoreRange<MinimumImage, MinimumImage>, &Block::StoreMatches<MinimumImage, MinimumImage>},
         {&Block::InterpolateDataLinearCorePeriodicXYZEeffect1, &Block::StoreRange<Stay, Stay>,
          &Block::StoreMatches<Stay, Stay>}}};
    if (mVariableNumber > DataLoader_cls::kSortByID) return nullptr;
    if (mPeriodic.type == PeriodicBoundary_cls::kNone) return &plain;
    if (mPeriodic.type > PeriodicBoundary_cls::kSpaceXYZ) return nullptr;
    if (mPeriodic.effect > PeriodicBoundary_cls::kZeroVelocity) return nullptr;
    return &periodic[mPeriodic.type - PeriodicBoundary_cls::kPlaneXY][mPeriodic.effect];
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinear(int begin, int end) {
    StoreRange<NoWrap, NoWrap>(begin, end);
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearPeriodic(int begin, int end) {
    (this->*mKernel->range)(begin, end);
}

void ThreadInterpolatorBlock_cls::InterpolateSameIndex(int begin, int end) {
    if (mPeriodic.type == PeriodicBoundary_cls::kNone) {
        InterpolateDataLinear(begin, end);
    } else {
        InterpolateDataLinearPeriodic(begin, end);
    }
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearSearchingID(int begin, int end) {
    if (!mArrays.mIDA || !mArrays.mIDB) return StoreNoRates(begin, end);
    if (mMatcher) return InterpolateShuffled(begin, end);
    std::array<IDMatch_cls, kLookUpBlock> matches{};
    for (int block = begin; block < end; block += kLookUpBlock) {
        const int count = std::min(kLookUpBlock, end - block);
        if (std::equal(mArrays.mIDA + block, mArrays.mIDA + block + count, mArrays.mIDB + block)) {
            InterpolateSameIndex(block, block + count);
            continue;
        }
        StoreNoRates(block, block + count);
        const size_t found = FindMatches(block, count, matches.data());
        (this->*mKernel->matches)(matches.data(), found);
    }
}

void ThreadInterpolatorBlock_cls::InterpolateShuffled(int begin, int end) {
    auto matches = mMatcher->FindMatches(begin, end);
    for (int block = begin; block < end; block += kLookUpBlock) {
        // Few at a time, so that they are still in the cache when the rates of those found are stored.
        const int blockEnd = std::min(block + kLookUpBlock, end);
        StoreNoRates(block, blockEnd);
        const auto next = std::ranges::lower_bound(matches, blockEnd, {}, &IDMatch_cls::i);
        const auto count = static_cast<size_t>(next - matches.begin());
        (this->*mKernel->matches)(matches.data(), count);
        matches = matches.subspan(count);
    }
}

void ThreadInterpolatorBlock_cls::InterpolateDataLinearSearchingIDSorted(int begin, int end) {
    // Every share walks B from its beginning.
    int cursor = 0;
    for (int i = begin; i < end; ++i) {
        const int j = mArrays.mIDA && mArrays.mIDB ? SearchIDFrom(&cursor, mArrays.mIDA[i]) : -1;
        if (j >= 0) {
            (this->*mKernel->one)(i, j, mDt);
        } else {
            StoreNoRates(i, i + 1);
        }
    }
}

size_t ThreadInterpolatorBlock_cls::FindMatches(int begin, int count, IDMatch_cls* matches) {
    size_t found = 0;
    if (!mIndex || !mIndex->IsUnique()) {
        for (int i = begin; i < begin + count; ++i) {
            matches[found] = {i, SearchID(i)};
            if (matches[found].j >= 0) ++found;
        }
        return found;
    }
    std::array<int32_t, kLookUpBlock> places{};
    mIndex->FindPlaces({mArrays.mIDA + begin, static_cast<size_t>(count)}, places.data());
    const int tenth = SearchOrder_cls::GetFirstTenth(mArrays.mCountB);
    int there = 0;
    for (int k = 0; k < count; ++k) {
        const int j = places[static_cast<size_t>(k)] - 1;
        const bool near = SearchOrder_cls::IsNear(begin + k, j);
        // To the processor this is a matter of chance: it is computed, not branched on.
        matches[found] = {begin + k, j};
        found += static_cast<size_t>((near | (j < tenth)) & (j >= 0));
        there += j >= 0 ? 1 : 0;
    }
    mOutOfReach += there - static_cast<int>(found);
    return found;
}

int ThreadInterpolatorBlock_cls::SearchID(int i) const {
    const int id = mArrays.mIDA[i];
    if (mArrays.mIDB[i] == id) return i;
    for (const int halfWidth : SearchOrder_cls::kHalfWidths) {
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
    return FindFirst(id, 0, SearchOrder_cls::GetFirstTenth(mArrays.mCountB));
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
