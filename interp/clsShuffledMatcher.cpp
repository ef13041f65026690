#include "interp/clsShuffledMatcher.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr size_t kMost = ShuffledMatcher_cls::kMostParticles;
constexpr size_t kMostInWindows = kMost + 2 * size_t{SearchOrder_cls::kWidest};
/// Bits that are asked for together, so that the processor waits for many of them at once.
constexpr int kAskedTogether = 128;
/// A set of this many bits lies in the cache nearest to the processor.
constexpr uint32_t kWantedBits = 1U << 18;
constexpr uint32_t kChains = 1U << 13;

}  // namespace

ShuffledMatcher_cls::ShuffledMatcher_cls(ShuffledPair_cls& pair)
    : mPair(pair),
      mReach(pair.GetRange()),
      mWanted(kWantedBits / 8),
      mMatches(kMost * sizeof(IDMatch_cls)),
      mEntries(kMost * sizeof(uint32_t)),
      mPlaces(kMost * sizeof(int32_t)),
      mUnplacedOnes(kMost * sizeof(uint32_t)),
      mWindowPlaces((kMostInWindows + 1) * sizeof(Place)),
      mChains(kChains * sizeof(uint32_t)) {}

std::span<const IDMatch_cls> ShuffledMatcher_cls::FindMatches(int begin, int end) {
    const auto b = mPair.GetB();
    const int windowBegin = std::max(begin - SearchOrder_cls::kWidest, 0);
    const int windowEnd = std::min(end - 1 + SearchOrder_cls::kWidest, static_cast<int>(b.size()));
    const auto window =
        b.subspan(static_cast<size_t>(windowBegin), static_cast<size_t>(windowEnd - windowBegin));
    mReach.Assign(mPair.GetTenth().GetBits());
    const int tenth = SearchOrder_cls::GetFirstTenth(static_cast<int>(b.size()));
    const auto fresh =
        window.subspan(static_cast<size_t>(std::clamp(tenth - windowBegin, 0, windowEnd - windowBegin)));
    if (!mReach.Add(fresh)) mPair.SetRepeats();
    if (mPair.HasRepeats()) return {};
    const int there = FindCandidates(begin, end);
    FindInTenth();
    FindInWindows(window, windowBegin);

    auto* matches = mMatches.As<IDMatch_cls>();
    const auto* places = mPlaces.As<int32_t>();
    size_t found = 0;
    for (size_t c = 0; c < mCandidates; ++c) {
        matches[found] = {matches[c].i, places[c] - 1};
        found += places[c] != 0 ? 1 : 0;
    }
    mOutOfReach += there - static_cast<int>(found);
    return {matches, found};
}

int ShuffledMatcher_cls::FindCandidates(int begin, int end) {
    const int32_t* a = mPair.GetA().data();
    const IDRange_cls range = mPair.GetRange();
    const uint64_t* reach = mReach.GetWords().data();
    const uint64_t* all = mPair.GetAllBits() ? mPair.GetAllBits()->GetWords().data() : nullptr;
    auto* matches = mMatches.As<IDMatch_cls>();
    auto* entries = mEntries.As<uint32_t>();
    std::array<uint32_t, kAskedTogether> asked{};
    size_t candidates = 0;
    int inRange = 0;
    int inB = 0;
    for (int block = begin; block < end; block += kAskedTogether) {
        const int count = std::min(kAskedTogether, end - block);
        for (int k = 0; k < count; ++k) {
            const size_t entry = range.EntryOf(a[block + k]);
            asked[static_cast<size_t>(k)] = static_cast<uint32_t>(entry);
            inRange += entry < range.size ? 1 : 0;
            __builtin_prefetch(reach + entry / 64);
        }
        for (int k = 0; k < count; ++k) {
            // To the processor this is a matter of chance: it is computed, not branched on.
            const uint32_t entry = asked[static_cast<size_t>(k)];
            matches[candidates].i = block + k;
            entries[candidates] = entry;
            candidates += IDBits_cls::Has(reach, entry) ? 1 : 0;
        }
        for (int k = 0; all && k < count; ++k) {
            inB += IDBits_cls::Has(all, asked[static_cast<size_t>(k)]) ? 1 : 0;
        }
    }
    mCandidates = candidates;
    return all ? inB : inRange;
}

void ShuffledMatcher_cls::FindInTenth() {
    auto* places = mPlaces.As<int32_t>();
    mPair.GetTenth().FindPlaces({mEntries.As<uint32_t>(), mCandidates}, places);
    auto* unplaced = mUnplacedOnes.As<uint32_t>();
    size_t count = 0;
    for (size_t c = 0; c < mCandidates; ++c) {
        unplaced[count] = static_cast<uint32_t>(c);
        count += places[c] == 0 ? 1 : 0;
    }
    mUnplaced = count;
}

void ShuffledMatcher_cls::FindInWindows(std::span<const int32_t> window, int windowBegin) {
    CollectWanted(window, windowBegin);
    const auto* wanted = mWindowPlaces.As<Place>();
    for (const uint32_t c : std::span(mUnplacedOnes.As<uint32_t>(), mUnplaced)) {
        const uint32_t entry = mEntries.As<uint32_t>()[c];
        uint32_t w = mChains.As<uint32_t>()[entry % kChains];
        while (w != 0 && wanted[w].entry != entry) w = wanted[w].next;
        if (w != 0 && SearchOrder_cls::IsNear(mMatches.As<IDMatch_cls>()[c].i, wanted[w].j)) {
            mPlaces.As<int32_t>()[c] = wanted[w].j + 1;
        }
    }
}

void ShuffledMatcher_cls::CollectWanted(std::span<const int32_t> window, int windowBegin) {
    auto* bits = mWanted.As<uint64_t>();
    std::fill_n(bits, kWantedBits / 64, 0);
    for (const uint32_t c : std::span(mUnplacedOnes.As<uint32_t>(), mUnplaced)) {
        const uint32_t digits = mEntries.As<uint32_t>()[c] % kWantedBits;
        bits[digits / 64] |= uint64_t{1} << digits % 64;
    }
    const IDRange_cls range = mPair.GetRange();
    auto* wanted = mWindowPlaces.As<Place>();
    uint32_t end = 1;
    for (size_t k = 0; k < window.size(); ++k) {
        const auto entry = static_cast<uint32_t>(range.OffsetOf(window[k]));
        wanted[end].entry = entry;
        wanted[end].j = windowBegin + static_cast<int>(k);
        end += IDBits_cls::Has(bits, entry % kWantedBits) ? 1 : 0;
    }
    auto* chains = mChains.As<uint32_t>();
    std::fill_n(chains, kChains, 0);
    for (uint32_t w = 1; w < end; ++w) {
        wanted[w].next = std::exchange(chains[wanted[w].entry % kChains], w);
    }
}
