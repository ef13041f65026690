#include "render/clsThreadSortParallel.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr uint32_t kBits = 11;
constexpr size_t kBuckets = size_t{1} << kBits;
constexpr size_t kRounds = 3;

using Places = std::array<std::array<uint32_t, kBuckets>, kRounds>;

/// Unsigned numbers in the order of the floats: the sign turned over, negative ones downwards.
inline uint32_t OrderOf(float key) {
    const auto bits = std::bit_cast<uint32_t>(key);
    return bits ^ (static_cast<uint32_t>(static_cast<int32_t>(bits) >> 31) | 0x80000000U);
}

inline size_t BucketOf(float key, size_t round) {
    return (OrderOf(key) >> (kBits * round)) & (kBuckets - 1);
}

/// How many keys fall into each bucket, for all rounds in one reading.
void Count(ArrayAndIndex_cls* entries, size_t count, Places& places) {
    for (size_t i = 0; i < count; ++i) {
        float& key = entries[i].mKey;
        if (std::isnan(key)) [[unlikely]]
            key = std::numeric_limits<float>::infinity();
        for (size_t round = 0; round < kRounds; ++round) ++places[round][BucketOf(key, round)];
    }
}

void Scatter(const ArrayAndIndex_cls* from, ArrayAndIndex_cls* to, size_t count, size_t round,
             std::array<uint32_t, kBuckets>& counts) {
    // Keys that share these bits are in order already.
    if (counts[BucketOf(from[0].mKey, round)] == count) {
        std::copy_n(from, count, to);
        return;
    }
    uint32_t place = 0;
    for (uint32_t& bucket : counts) place += std::exchange(bucket, place);
    for (size_t i = 0; i < count; ++i) to[counts[BucketOf(from[i].mKey, round)]++] = from[i];
}

}  // namespace

void ThreadSortParallel_cls::SortInto(ArrayAndIndex_cls* entries, ArrayAndIndex_cls* sorted, size_t count) {
    if (count == 0) return;
    Places places{};
    Count(entries, count, places);
    Scatter(entries, sorted, count, 0, places[0]);
    Scatter(sorted, entries, count, 1, places[1]);
    Scatter(entries, sorted, count, 2, places[2]);
}
