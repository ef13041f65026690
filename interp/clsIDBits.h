#pragma once

#include <cstdint>
#include <span>

#include "data/clsLargeMemory.h"
#include "interp/clsIDRange.h"

/// A set of IDs: a bit for every number of a range. At a million IDs or more that is the form in which a set
/// of them stays in the processor's cache.
/// Threads: one that changes it, or any number that ask. Failure: std::bad_alloc at construction.
class IDBits_cls {
  public:
    explicit IDBits_cls(const IDRange_cls& range);

    /// All of them lie in the range. False when some were in the set already, or occur twice.
    bool Add(std::span<const int32_t> ids);
    /// Makes this the same set as another one of the same range.
    void Assign(const IDBits_cls& other);
    /// Bit k of word w stands for entry 64 w + k of the range. One more than the range has numbers: it stays
    /// 0 and stands for every ID outside.
    std::span<const uint64_t> GetWords() const { return {mMemory.As<uint64_t>(), mWords}; }

    static bool Has(const uint64_t* words, size_t entry) {
        return (words[entry / 64] >> entry % 64 & 1) != 0;
    }

  private:
    IDRange_cls mRange;
    size_t mWords;
    LargeMemory_cls mMemory;
};
