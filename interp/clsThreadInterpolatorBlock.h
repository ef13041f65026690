#pragma once

#include <memory>

#include "interp/clsIDIndex.h"
#include "interp/clsPeriodicBoundary.h"
#include "interp/clsRateArrays.h"
#include "interp/clsShuffledMatcher.h"
#include "interp/clsWorkShares.h"
#include "seam/clsJoinedThread.h"

/// One worker of a rate stage: the rates of a share of A's particles.
/// Owned by its ThreadInterpolator_cls.
/// Threads: reads the arrays of A and B, writes only A's rates of the particles it has taken; runs as a
/// joinable thread, or on the caller's by calling Entry().
/// Units: rates per time unit, of which dt lie between the snapshots.
///
/// Matching by ID, in the order that SearchOrder_cls tells. Every one of its tries asks for the smallest
/// position of an ID between two bounds, and that is what IDIndex_cls::FindFirst() answers without scanning;
/// ShuffledMatcher_cls answers the same for large snapshots in which few particles are found at all. So the
/// answers are the scan's; only the cost differs.
class ThreadInterpolatorBlock_cls final : public JoinedThread_cls {
  public:
    ~ThreadInterpolatorBlock_cls() override { Join(); }

    /// The shares hold particles of A that all exist in B; they and the index outlive the worker. Without
    /// an index the searches scan.
    void SetParameters(const RateArrays_cls& arrays, WorkShares_cls& shares, int worker, float dt,
                       unsigned int variableNumber, const PeriodicBoundary_cls::Rule& periodic,
                       const IDIndex_cls* index);
    /// Hands over what finds the matches instead of an index; the blocks of the shares fit it.
    void SetMatcher(std::unique_ptr<ShuffledMatcher_cls> matcher) { mMatcher = std::move(matcher); }
    ExitCode Entry() override;
    /// Particles whose ID is in B, where no search looks for it.
    int GetOutOfReach() const { return mMatcher ? mMatcher->GetOutOfReach() : mOutOfReach; }
    /// False for settings that no kernel is made for: the particles are then left as they are.
    bool HasKernel() const { return mKernel != nullptr; }

    // Rates of particle i of A from particle j of B

    void InterpolateDataLinearCore(int i, int j, float dt);
    void InterpolateDataLinearCorePeriodicXYEeffect0(int i, int j, float dt);
    void InterpolateDataLinearCorePeriodicXYEeffect1(int i, int j, float dt);
    void InterpolateDataLinearCorePeriodicXYZEeffect0(int i, int j, float dt);
    void InterpolateDataLinearCorePeriodicXYZEeffect1(int i, int j, float dt);

    // Particles begin to end - 1 by one rule of matching; only with a kernel

    void InterpolateDataLinear(int begin, int end);
    void InterpolateDataLinearPeriodic(int begin, int end);
    void InterpolateDataLinearSearchingID(int begin, int end);
    void InterpolateDataLinearSearchingIDSorted(int begin, int end);

    // Searches in B, -1 for not found

    int SearchIDNear(int i, int id, int halfWidth) const;
    int SearchIDFull(int id) const;
    /// One step through two arrays of ascending IDs. The cursor stays before an ID that was skipped.
    int SearchIDFrom(int* cursor, int id) const;

  private:
    /// One rule of wrapping: for a particle, for a range of particles that have kept their index, for
    /// matches.
    struct Kernel {
        void (ThreadInterpolatorBlock_cls::*one)(int i, int j, float dt);
        void (ThreadInterpolatorBlock_cls::*range)(int begin, int end);
        void (ThreadInterpolatorBlock_cls::*matches)(const IDMatch_cls* matches, size_t count);
    };

    /// Null for settings that no kernel is made for.
    const Kernel* ChooseKernel() const;
    template <class WrapXY, class WrapZ>
    static void StoreRates(RateArrays_cls arrays, std::array<float, 3> length, int i, int j, float dt);
    template <class WrapXY, class WrapZ>
    void StoreRange(int begin, int end);
    template <class WrapXY, class WrapZ>
    void StoreMatches(const IDMatch_cls* matches, size_t count);
    void StoreNoRates(int begin, int end);
    /// Particle i of A is particle i of B.
    void InterpolateSameIndex(int begin, int end);

    /// By the matcher.
    void InterpolateShuffled(int begin, int end);

    int FindFirst(int id, int begin, int end) const;
    int SearchID(int i) const;
    /// SearchID() for `count` particles; returns the number of those that are found.
    size_t FindMatches(int begin, int count, IDMatch_cls* matches);
    /// Has both particles fetched from memory ahead of time.
    static void Prefetch(const RateArrays_cls& arrays, const IDMatch_cls& match);

    RateArrays_cls mArrays;
    WorkShares_cls* mShares = nullptr;
    int mWorker = 0;
    int mOutOfReach = 0;
    float mDt = 1.0F;
    unsigned int mVariableNumber = 0;
    PeriodicBoundary_cls::Rule mPeriodic;
    const IDIndex_cls* mIndex = nullptr;
    std::unique_ptr<ShuffledMatcher_cls> mMatcher;
    const Kernel* mKernel = nullptr;
};
