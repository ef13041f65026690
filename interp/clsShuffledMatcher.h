#pragma once

#include <span>

#include "interp/clsSearchOrder.h"
#include "interp/clsShuffledPair.h"

/// Finds the particles of a range of A in B for one worker. The bits of what a search from this range can
/// reach, the first tenth of B and the windows of all its particles together, tell which particles have to
/// be looked for: those of the first tenth, and the rest in one pass through the windows.
/// Threads: one. Failure: std::bad_alloc at construction only, so that workers need not expect it.
class ShuffledMatcher_cls {
  public:
    /// The most particles of a range. The pass through the windows costs the least for long ranges, so long
    /// as what it looks for is few.
    static constexpr int kMostParticles = 131072;

    explicit ShuffledMatcher_cls(ShuffledPair_cls& pair);

    /// The particles begin to end - 1 that are found, in ascending order of i. The span is good until the
    /// next call. All of them exist in B by their index.
    std::span<const IDMatch_cls> FindMatches(int begin, int end);
    /// Of all particles asked for so far, those whose ID is in B, where no search looks for it.
    int GetOutOfReach() const { return mOutOfReach; }

  private:
    struct Place {
        uint32_t entry;
        int j;
        uint32_t next;  ///< the one before with the same last digits
    };

    /// Takes the particles that can be found at all as candidates; returns how many IDs are in B.
    int FindCandidates(int begin, int end);
    void FindInTenth();
    /// Looks in B, from one position on, for the candidates that have no place yet.
    void FindInWindows(std::span<const int32_t> window, int windowBegin);
    /// Takes the particles there that may be wanted into the chains.
    void CollectWanted(std::span<const int32_t> window, int windowBegin);

    ShuffledPair_cls& mPair;
    int mOutOfReach = 0;
    IDBits_cls mReach;
    LargeMemory_cls mWanted;  ///< bits by the last digits of entries
    size_t mCandidates = 0;
    size_t mUnplaced = 0;
    LargeMemory_cls mMatches;       ///< the candidates' IDMatch_cls, later those of them that are found
    LargeMemory_cls mEntries;       ///< the candidates' entries in the range
    LargeMemory_cls mPlaces;        ///< and their positions in B + 1, 0 for nowhere
    LargeMemory_cls mUnplacedOnes;  ///< which of them are not in the first tenth
    LargeMemory_cls mWindowPlaces;  ///< those of the windows' particles that may be wanted, from 1 on
    LargeMemory_cls mChains;        ///< the last of them by the last digits of its entry, 0 for none
};
