#include "interp/clsIDRanks.h"

#include <algorithm>
#include <array>

namespace {

/// Entries looked up together, so that the processor waits for many of them at once.
constexpr size_t kTogether = 128;

/// std::popcount calls a function where processors without the instruction are built for.
uint32_t CountBits(uint64_t word) {
    word -= word >> 1 & 0x5555555555555555U;
    word = (word & 0x3333333333333333U) + (word >> 2 & 0x3333333333333333U);
    word = (word + (word >> 4)) & 0x0f0f0f0f0f0f0f0fU;
    return static_cast<uint32_t>((word * 0x0101010101010101U) >> 56);
}

}  // namespace

IDRanks_cls::IDRanks_cls(std::span<const int32_t> ids, const IDRange_cls& range)
    : mBits(range),
      mBefore(mBits.GetWords().size() * sizeof(uint32_t)),
      mPlaces((ids.size() + 1) * sizeof(int32_t)),
      mCount(ids.size()),
      mIsUnique(mBits.Add(ids)) {
    if (!mIsUnique) return;
    uint32_t before = 0;
    auto* group = mBefore.As<uint32_t>();
    for (const uint64_t word : mBits.GetWords()) {
        *group++ = before;
        before += CountBits(word);
    }
    auto* places = mPlaces.As<int32_t>();
    std::array<size_t, kTogether> ranks{};
    for (size_t begin = 0; begin < ids.size(); begin += kTogether) {
        const auto together = ids.subspan(begin, std::min(kTogether, ids.size() - begin));
        for (const int32_t id : together) {
            __builtin_prefetch(mBits.GetWords().data() + range.OffsetOf(id) / 64);
            __builtin_prefetch(mBefore.As<uint32_t>() + range.OffsetOf(id) / 64);
        }
        for (size_t k = 0; k < together.size(); ++k) {
            ranks[k] = RankOf(range.OffsetOf(together[k]));
            __builtin_prefetch(places + ranks[k], 1);
        }
        for (size_t k = 0; k < together.size(); ++k) places[ranks[k]] = static_cast<int32_t>(begin + k + 1);
    }
}

inline size_t IDRanks_cls::RankOf(size_t entry) const {
    const uint64_t word = mBits.GetWords()[entry / 64];
    return mBefore.As<uint32_t>()[entry / 64] + CountBits(word & ((uint64_t{1} << entry % 64) - 1));
}

void IDRanks_cls::FindPlaces(std::span<const uint32_t> entries, int32_t* places) const {
    const auto* words = mBits.GetWords().data();
    const auto* before = mBefore.As<uint32_t>();
    const auto* placeOf = mPlaces.As<int32_t>();
    for (size_t begin = 0; begin < entries.size(); begin += kTogether) {
        const size_t end = std::min(begin + kTogether, entries.size());
        for (size_t k = begin; k < end; ++k) {
            __builtin_prefetch(words + entries[k] / 64);
            __builtin_prefetch(before + entries[k] / 64);
        }
        for (size_t k = begin; k < end; ++k) {
            const size_t rank = RankOf(entries[k]);
            places[k] = static_cast<int32_t>(IDBits_cls::Has(words, entries[k]) ? rank : mCount);
            __builtin_prefetch(placeOf + places[k]);
        }
        for (size_t k = begin; k < end; ++k) places[k] = placeOf[places[k]];
    }
}
