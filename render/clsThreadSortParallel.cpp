#include "render/clsThreadSortParallel.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace {

using Entry = ArrayAndIndex_cls;

/// More pieces than this are scattered to slower than they are sorted faster.
constexpr size_t kMostPieces = 2048;
constexpr size_t kEntriesPerPiece = 1024;
/// Fewer entries are sorted by insertion.
constexpr size_t kFewEntries = 24;
constexpr uint32_t kMostBits = 11;

/// Unsigned numbers in the order of the floats: the sign turned over, negative ones downwards.
inline uint32_t OrderOf(float key) {
    const auto bits = std::bit_cast<uint32_t>(key);
    return bits ^ (static_cast<uint32_t>(static_cast<int32_t>(bits) >> 31) | 0x80000000U);
}

/// Counts of entries become the place of each bucket's next entry.
void CountsToPlaces(uint32_t* places, size_t size) {
    uint32_t place = 0;
    for (size_t k = 0; k < size; ++k) place += std::exchange(places[k], place);
}

void SortByInsertion(Entry* entries, size_t count) {
    for (size_t i = 1; i < count; ++i) {
        const Entry entry = entries[i];
        size_t k = i;
        for (; k > 0 && OrderOf(entries[k - 1].mKey) > OrderOf(entry.mKey); --k) entries[k] = entries[k - 1];
        entries[k] = entry;
    }
}

/// Sorts by the lowest `allBits` of the keys' distance from the least, lowest first, in an even number of
/// rounds, so that the entries end where they were.
template <uint32_t rounds>
void SortInRounds(Entry* entries, Entry* scratch, size_t count, uint32_t least, uint32_t allBits) {
    const uint32_t bits = (allBits + rounds - 1) / rounds;
    const uint32_t mask = (1U << bits) - 1;
    const auto bucketOf = [least, mask, bits](const Entry& entry, uint32_t round) {
        return ((OrderOf(entry.mKey) - least) >> (bits * round)) & mask;
    };
    std::array<std::array<uint32_t, size_t{1} << kMostBits>, rounds> places;
    for (auto& ofRound : places) std::fill_n(ofRound.begin(), mask + 1, 0U);
    for (size_t i = 0; i < count; ++i) {
        for (uint32_t round = 0; round < rounds; ++round) ++places[round][bucketOf(entries[i], round)];
    }
    for (uint32_t round = 0; round < rounds; ++round) {
        uint32_t* const ofRound = places[round].data();
        CountsToPlaces(ofRound, mask + 1);
        for (size_t i = 0; i < count; ++i) scratch[ofRound[bucketOf(entries[i], round)]++] = entries[i];
        std::swap(entries, scratch);
    }
}

void SortByBits(Entry* entries, Entry* scratch, size_t count) {
    if (count < kFewEntries) return SortByInsertion(entries, count);
    uint32_t least = OrderOf(entries[0].mKey);
    uint32_t most = least;
    for (size_t i = 1; i < count; ++i) {
        least = std::min(least, OrderOf(entries[i].mKey));
        most = std::max(most, OrderOf(entries[i].mKey));
    }
    const auto bits = static_cast<uint32_t>(std::bit_width(most - least));
    if (bits == 0) return;
    if (bits <= 2 * kMostBits) {
        SortInRounds<2>(entries, scratch, count, least, bits);
    } else {
        SortInRounds<4>(entries, scratch, count, least, bits);
    }
}

/// Equal pieces of the range of the finite keys; infinities belong to the outermost ones.
class Pieces_cls {
  public:
    Pieces_cls(Entry* entries, size_t count)
        : mSize(std::clamp(std::bit_floor(count / kEntriesPerPiece), size_t{1}, kMostPieces)) {
        float least = std::numeric_limits<float>::max();
        float most = std::numeric_limits<float>::lowest();
        for (size_t i = 0; i < count; ++i) {
            float& key = entries[i].mKey;
            if (std::isnan(key)) [[unlikely]]
                key = std::numeric_limits<float>::infinity();
            if (std::isinf(key)) [[unlikely]]
                continue;
            least = std::min(least, key);
            most = std::max(most, key);
        }
        mLeast = least;
        if (least < most) mScale = static_cast<double>(mSize) / (double{most} - least);
    }
    size_t GetSize() const { return mSize; }
    /// Ascending with the key, whatever is rounded.
    size_t PieceOf(const Entry& entry) const {
        const double piece = (double{entry.mKey} - mLeast) * mScale;
        // Where all finite keys are equal, an infinity gives no number: false, hence the first piece.
        return piece > 0.0 ? static_cast<size_t>(std::min(piece, static_cast<double>(mSize - 1))) : 0;
    }

  private:
    size_t mSize;
    double mLeast;
    double mScale = 0.0;
};

}  // namespace

void ThreadSortParallel_cls::SortInto(ArrayAndIndex_cls* entries, ArrayAndIndex_cls* sorted, size_t count) {
    const Pieces_cls pieces(entries, count);
    std::array<uint32_t, kMostPieces> places{};
    for (size_t i = 0; i < count; ++i) ++places[pieces.PieceOf(entries[i])];
    CountsToPlaces(places.data(), pieces.GetSize());
    for (size_t i = 0; i < count; ++i) sorted[places[pieces.PieceOf(entries[i])]++] = entries[i];
    // Every piece's place is now its end. All pieces use the same scratch, so that it stays in the cache.
    size_t begin = 0;
    for (size_t k = 0; k < pieces.GetSize(); ++k) {
        const size_t end = places[k];
        SortByBits(sorted + begin, entries, end - begin);
        begin = end;
    }
}
