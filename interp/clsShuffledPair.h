#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <span>

#include "interp/clsIDRanks.h"

/// What is known of a pair of large snapshots whose orders have next to nothing in common, as those of codes
/// that sort particles by processor or by place. An index of all of B would not fit into the processor's
/// cache, and nine in ten particles are not found anyway, because the search does not look where they are.
/// This tells where the IDs of B's first tenth are; the windows are left to ShuffledMatcher_cls.
/// Owned by the rate stage. Threads: made by one, then read by the matchers of all workers.
class ShuffledPair_cls {
  public:
    using IDs = std::span<const int32_t>;

    /// Null for pairs that an index of B suits better: small ones, ones of similar order, IDs that are
    /// scattered or repeat. Both arrays outlive it. Failure: std::bad_alloc.
    static std::unique_ptr<ShuffledPair_cls> Make(IDs a, IDs b);
    /// The same without asking whether it is worth it: null only if an ID of the first tenth repeats.
    static std::unique_ptr<ShuffledPair_cls> MakeAlways(IDs a, IDs b, const IDRange_cls& range);

    IDs GetA() const { return mA; }
    IDs GetB() const { return mB; }
    const IDRange_cls& GetRange() const { return mRange; }
    const IDRanks_cls& GetTenth() const { return *mTenth; }
    /// The bits of all that is in B, or null when that is every number of the range.
    const IDBits_cls* GetAllBits() const { return mAllBits ? &*mAllBits : nullptr; }

    // An ID that repeats where one search may meet it twice: then none of the matches is to be used

    void SetRepeats() { mRepeats.store(true, std::memory_order_relaxed); }
    bool HasRepeats() const { return mRepeats.load(std::memory_order_relaxed); }

  private:
    ShuffledPair_cls(IDs a, IDs b, const IDRange_cls& range);

    IDs mA;
    IDs mB;
    IDRange_cls mRange;
    std::optional<IDRanks_cls> mTenth;
    std::optional<IDBits_cls> mAllBits;
    std::atomic<bool> mRepeats{false};
};
