#pragma once

#include <array>

#include "data/clsDataLoader.h"
#include "data/clsParticleTarget.h"

/// The loader's transforms of particles that have been read, and their order by ID.
/// A copy of the settings, so that a change in the loader dialog does not reach a read under way.
/// Threads: DoAdjusting() from any, on ranges that do not overlap; SortById() when all of them are done.
/// Failure: SortById() needs 24 bytes a particle for itself and throws std::bad_alloc.
class ParticleAdjuster_cls {
  public:
    explicit ParticleAdjuster_cls(const DataLoader_cls& loader);

    /// In this order: translates positions; scales positions, velocities and radii; scales value1; takes its
    /// base-10 logarithm, 0 for values at or below 0. A scale of exactly 0 is not applied.
    /// Arrays that the grammar does not fill hold zeros; except for the positions they are left alone.
    void DoAdjusting(const ParticleTarget_cls& target, int first, int count) const;

    bool IsSortedById() const { return mSortById; }
    /// Brings the first particles into ascending order of their IDs, equal ones in file order. Only positions
    /// and IDs move: matching by sorted IDs looks at nothing else, and users' projects rely on the rest
    /// staying in file order.
    static void SortById(const ParticleTarget_cls& target, int count);

  private:
    std::array<float, 3> mTranslate;
    float mScale;
    float mScaleValue1;
    bool mIsTranslated;
    bool mIsScaled;
    bool mIsValue1Scaled;
    bool mIsLogarithm;
    bool mSortById;
    bool mHasVelocity;
    bool mHasRadius;
    bool mHasValue1;
};
