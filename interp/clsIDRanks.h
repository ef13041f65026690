#pragma once

#include "interp/clsIDBits.h"

/// Where a few IDs of a range stand: a bit for every number of the range, and a
/// position for every bit that is set. It is a fraction of the size of a table by number.
/// Threads: any number that ask. Failure: std::bad_alloc at construction.
class IDRanks_cls {
  public:
    IDRanks_cls(std::span<const int32_t> ids, const IDRange_cls& range);

    /// False when an ID occurs twice; there are no places then.
    bool IsUnique() const { return mIsUnique; }
    const IDBits_cls& GetBits() const { return mBits; }
    /// For each entry of the range its position + 1, 0 for nowhere.
    void FindPlaces(std::span<const uint32_t> entries, int32_t* places) const;

  private:
    size_t RankOf(size_t entry) const;

    IDBits_cls mBits;
    LargeMemory_cls mBefore;  ///< of every word of bits, how many are set in those before it
    LargeMemory_cls mPlaces;  ///< by rank; the last one stands for all that are not there
    size_t mCount;
    bool mIsUnique;
};
