#include "data/clsParticleAdjuster.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "data/clsLargeMemory.h"

namespace {

void Multiply(float* values, size_t count, float factor) {
    for (size_t i = 0; i < count; ++i) values[i] *= factor;
}

float LogarithmOrZero(float value) {
    // Not a number stays what it is.
    return value <= 0.0F ? 0.0F : std::log10(value);
}

struct Entry {
    uint32_t key;
    uint32_t index;
};

/// Signed order as unsigned order.
uint32_t KeyOf(int32_t id) {
    return static_cast<uint32_t>(id) ^ 0x80000000U;
}
int32_t IdOf(uint32_t key) {
    return static_cast<int32_t>(key ^ 0x80000000U);
}

/// Radix sort from the lowest digit up: stable, so particles with equal IDs keep the order of the file.
/// Digits of a byte: the ends of 256 growing runs stay in the nearest cache. A digit that all keys share
/// costs no pass. Returns where the sorted entries are: in one of the two blocks.
Entry* Sort(Entry* entries, Entry* spare, size_t count) {
    constexpr unsigned int kBits = 8;
    constexpr size_t kBuckets = size_t{1} << kBits;
    constexpr unsigned int kPasses = 4;
    std::array<std::array<uint32_t, kBuckets>, kPasses> places{};
    const auto digit = [](uint32_t key, unsigned int pass) { return (key >> (pass * kBits)) % kBuckets; };
    for (size_t i = 0; i < count; ++i) {
        for (unsigned int pass = 0; pass < kPasses; ++pass) ++places[pass][digit(entries[i].key, pass)];
    }
    for (unsigned int pass = 0; pass < kPasses; ++pass) {
        auto& place = places[pass];
        if (place[digit(entries[0].key, pass)] == count) continue;
        uint32_t begin = 0;
        for (uint32_t& bucket : place) begin += std::exchange(bucket, begin);
        for (size_t i = 0; i < count; ++i) spare[place[digit(entries[i].key, pass)]++] = entries[i];
        std::swap(entries, spare);
    }
    return entries;
}

}  // namespace

ParticleAdjuster_cls::ParticleAdjuster_cls(const DataLoader_cls& loader)
    : mTranslate{loader.mTranslate.mValue[0], loader.mTranslate.mValue[1], loader.mTranslate.mValue[2]},
      mScale(loader.mScale.mValue),
      mScaleValue1(loader.mScaleValue1.mValue),
      mIsTranslated(loader.IsTranslated()),
      // Multiplying by 1 changes nothing.
      mIsScaled(loader.IsScaled() && mScale != 1.0F),
      mIsValue1Scaled(loader.IsValue1Scaled() && mScaleValue1 != 1.0F),
      mIsLogarithm(loader.mLogarithm.mValue == 1),
      mSortById(loader.mVariableNumber.mValue == DataLoader_cls::kSortByID),
      mHasVelocity(loader.IsItemExistBody(GrammerBase_cls::kVelocity)),
      mHasRadius(loader.IsItemExistBody(GrammerBase_cls::kRadius)),
      mHasValue1(loader.IsItemExistBody(GrammerBase_cls::kValue1)) {}

void ParticleAdjuster_cls::DoAdjusting(const ParticleTarget_cls& target, int first, int count) const {
    const auto begin = static_cast<size_t>(first);
    const auto n = static_cast<size_t>(count);
    if (mIsTranslated) {
        float* position = target.mPosition + 3 * begin;
        for (size_t i = 0; i < 3 * n; i += 3) {
            for (size_t axis = 0; axis < 3; ++axis) position[i + axis] += mTranslate[axis];
        }
    }
    if (mIsScaled) {
        Multiply(target.mPosition + 3 * begin, 3 * n, mScale);
        if (mHasVelocity) Multiply(target.mVelocity + 3 * begin, 3 * n, mScale);
        if (mHasRadius) Multiply(target.mRadius + begin, n, mScale);
    }
    if (!mHasValue1) return;
    float* value1 = target.mValue1 + begin;
    if (mIsValue1Scaled) Multiply(value1, n, mScaleValue1);
    if (mIsLogarithm) std::transform(value1, value1 + n, value1, LogarithmOrZero);
}

void ParticleAdjuster_cls::SortById(const ParticleTarget_cls& target, int count) {
    const auto n = static_cast<size_t>(count);
    if (!target.mID || std::is_sorted(target.mID, target.mID + n)) return;

    // Each has room for entries or positions: the one that the entries do not end in takes the positions.
    const LargeMemory_cls first(n * 3 * sizeof(float));
    const LargeMemory_cls second(n * 3 * sizeof(float));
    auto* entries = first.As<Entry>();
    for (size_t i = 0; i < n; ++i) entries[i] = {KeyOf(target.mID[i]), static_cast<uint32_t>(i)};
    const Entry* sorted = Sort(entries, second.As<Entry>(), n);
    float* before = sorted == entries ? second.As<float>() : first.As<float>();

    std::copy_n(target.mPosition, 3 * n, before);
    // Places to come are fetched early: every one of them would be waited for.
    constexpr size_t kAhead = 16;
    for (size_t i = 0; i < n; ++i) {
        __builtin_prefetch(before + 3 * size_t{sorted[std::min(i + kAhead, n - 1)].index});
        target.mID[i] = IdOf(sorted[i].key);
        std::copy_n(before + 3 * size_t{sorted[i].index}, 3, target.mPosition + 3 * i);
    }
}
