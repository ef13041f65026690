#ifndef EXAMPLES_CLSGALAXYMODEL_H
#define EXAMPLES_CLSGALAXYMODEL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "clsRandom.h"

struct Vector_cls {
    double mX = 0.0;
    double mY = 0.0;
    double mZ = 0.0;
};

/// One particle as it is written; also the layout of a record in a binary snapshot.
struct Particle_cls {
    float mX, mY, mZ;
    float mVx, mVy, mVz;
    float mRadius;
    std::int32_t mId;
    std::int32_t mType;
    float mValue1;
};
static_assert(sizeof(Particle_cls) == 40, "a binary record has 40 bytes without gaps");

/// Two galaxies that pass each other. Each is a softened point mass with massless particles around it:
/// the centres pull each other and the particles, the particles pull nothing. So every particle can be
/// followed by itself.
///
/// G is 1. With lengths in kpc and speeds in 100 km/s a unit of time is 9.8 million years and a unit of
/// mass 2.3e9 suns.
class GalaxyModel_cls {
  public:
    /// The time from the first picture to the last.
    static constexpr double kDuration = 32.0;
    /// The pictures are taken so that the closest passage falls on this part of the duration.
    static constexpr double kPassageShare = 0.48;

    GalaxyModel_cls(std::size_t particleCount, std::uint64_t seed);

    /// Moves on by a time, in that many equal steps. The number of threads does not change the result.
    void Advance(double duration, std::size_t stepCount, unsigned threadCount);

    /// The number of equal steps that a time needs to be followed faithfully.
    static std::size_t StepsFor(double duration);

    std::size_t ParticleCount() const { return mX.size(); }
    Particle_cls Particle(std::size_t index) const;

  private:
    enum Type : std::int32_t { kDiscA, kDiscB, kBulgeA, kBulgeB };

    static constexpr std::size_t kGalaxyCount = 2;
    using Positions = std::array<Vector_cls, kGalaxyCount>;

    static Type TypeOf(std::size_t index);
    static std::size_t GalaxyOf(Type type);

    void PlaceCentres();
    void PlaceDiscParticle(std::size_t index, Random_cls& random);
    void PlaceBulgeParticle(std::size_t index, Random_cls& random);
    void Place(std::size_t index, const Vector_cls& offset, const Vector_cls& velocity);

    void MoveCentres(double step);
    void KickCentres(double step);
    void MoveBlock(std::size_t begin, std::size_t end, double step, const std::vector<Positions>& path);
    void DriftBlock(std::size_t begin, std::size_t end, double step);
    void KickBlock(std::size_t begin, std::size_t end, double step, const Positions& centres);

    Positions mCentres;
    Positions mCentreVelocities;

    // One array for each coordinate, so that the loops over particles run straight through the memory.
    std::vector<double> mX, mY, mZ;
    std::vector<double> mVx, mVy, mVz;
};

#endif
