#include "clsGalaxyModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <thread>

namespace {

struct Galaxy_cls {
    double mMass;
    double mSoftening;
    double mDiscScale;  // the surface density falls by e over this length
    double mDiscEdge;
    double mDiscThickness;
    double mBulgeScale;
    double mBulgeEdge;
    double mInclination;  // of the spin against that of the orbit, degrees
    double mAzimuth;      // the direction in which the spin leans, degrees
};

constexpr std::array<Galaxy_cls, 2> kGalaxies{{
    {20.0, 1.1, 3.0, 7.2, 0.08, 0.45, 1.8, 24.0, 250.0},
    {13.0, 0.9, 2.3, 5.4, 0.07, 0.35, 1.4, 44.0, 40.0},
}};

// The orbit of the two centres around each other, as it would be without softening.
constexpr double kPericentre = 9.0;
constexpr double kEccentricity = 0.85;
constexpr double kPericentreAngle = 80.0;  // degrees; turns the orbit in its plane

// About seventy steps for the fastest revolution, which is that in the core of the lighter galaxy.
constexpr double kLongestStep = 0.02;

// Shares of the particles, in the order of the types.
constexpr double kDiscAShare = 0.56;
constexpr double kDiscBShare = 0.35;
constexpr double kBulgeAShare = 0.055;

constexpr float kDiscRadius = 0.05F;
constexpr float kBulgeRadius = 0.08F;

// A block of particles fits the cache. The blocks do not depend on the number of threads, so neither does
// the way in which the compiler groups the particles of a loop.
constexpr std::size_t kBlockSize = 512;

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

double Length(const Vector_cls& vector) {
    return std::sqrt(vector.mX * vector.mX + vector.mY * vector.mY + vector.mZ * vector.mZ);
}

Vector_cls Difference(const Vector_cls& a, const Vector_cls& b) {
    return {a.mX - b.mX, a.mY - b.mY, a.mZ - b.mZ};
}

/// Leans a vector of the plane z = 0 the way the galaxy's disc leans.
Vector_cls Lean(const Vector_cls& vector, const Galaxy_cls& galaxy) {
    const double cosInclination = std::cos(Radians(galaxy.mInclination));
    const double sinInclination = std::sin(Radians(galaxy.mInclination));
    const double cosAzimuth = std::cos(Radians(galaxy.mAzimuth));
    const double sinAzimuth = std::sin(Radians(galaxy.mAzimuth));
    const double along = cosInclination * vector.mX + sinInclination * vector.mZ;
    const double up = -sinInclination * vector.mX + cosInclination * vector.mZ;
    return {cosAzimuth * along - sinAzimuth * vector.mY, sinAzimuth * along + cosAzimuth * vector.mY, up};
}

/// The angular speed of a circular orbit.
double Revolution(const Galaxy_cls& galaxy, double radius) {
    const double softened = radius * radius + galaxy.mSoftening * galaxy.mSoftening;
    return std::sqrt(galaxy.mMass / (softened * std::sqrt(softened)));
}

/// The radius that holds a share of an exponential disc, by halving: the equation has no closed solution.
double DiscRadius(const Galaxy_cls& galaxy, double share) {
    const auto held = [](double x) { return 1.0 - (1.0 + x) * std::exp(-x); };
    const double edge = galaxy.mDiscEdge / galaxy.mDiscScale;
    const double wanted = share * held(edge);
    double low = 0.0;
    double high = edge;
    for (int i = 0; i < 50; ++i) {
        const double middle = 0.5 * (low + high);
        (held(middle) < wanted ? low : high) = middle;
    }
    return low * galaxy.mDiscScale;
}

/// The radius that holds a share of a ball with a dense core and a cut edge.
double BulgeRadius(const Galaxy_cls& galaxy, double share) {
    const double ratio = galaxy.mBulgeScale / galaxy.mBulgeEdge;
    const double heldByEdge = std::pow(1.0 + ratio * ratio, -1.5);
    const double held = std::max(share * heldByEdge, 1e-9);
    return galaxy.mBulgeScale / std::sqrt(std::pow(held, -2.0 / 3.0) - 1.0);
}

}  // namespace

GalaxyModel_cls::GalaxyModel_cls(std::size_t particleCount, std::uint64_t seed)
    : mX(particleCount),
      mY(particleCount),
      mZ(particleCount),
      mVx(particleCount),
      mVy(particleCount),
      mVz(particleCount) {
    PlaceCentres();
    Random_cls random(seed, 0);
    for (std::size_t i = 0; i < particleCount; ++i) {
        const Type type = TypeOf(i);
        if (type == kDiscA || type == kDiscB) {
            PlaceDiscParticle(i, random);
        } else {
            PlaceBulgeParticle(i, random);
        }
    }
}

/// Mixes the types evenly: any run of ids is a fair sample of both galaxies.
GalaxyModel_cls::Type GalaxyModel_cls::TypeOf(std::size_t index) {
    const auto scattered = static_cast<std::uint32_t>(index * 2654435769U);  // 2^32 / golden ratio
    const double share = static_cast<double>(scattered) * 0x1p-32;
    if (share < kDiscAShare) {
        return kDiscA;
    }
    if (share < kDiscAShare + kDiscBShare) {
        return kDiscB;
    }
    return share < kDiscAShare + kDiscBShare + kBulgeAShare ? kBulgeA : kBulgeB;
}

std::size_t GalaxyModel_cls::GalaxyOf(Type type) {
    return type == kDiscA || type == kBulgeA ? 0 : 1;
}

/// Sets the closest passage and goes back from there: so it comes when it is wanted, and the softening,
/// for which the orbit has no closed form, is accounted for.
void GalaxyModel_cls::PlaceCentres() {
    const double totalMass = kGalaxies[0].mMass + kGalaxies[1].mMass;
    const double speed = std::sqrt(totalMass * (1.0 + kEccentricity) / kPericentre);
    const double cosAngle = std::cos(Radians(kPericentreAngle));
    const double sinAngle = std::sin(Radians(kPericentreAngle));
    for (std::size_t i = 0; i < kGalaxyCount; ++i) {
        const double share = (i == 0 ? -kGalaxies[1].mMass : kGalaxies[0].mMass) / totalMass;
        mCentres[i] = {share * kPericentre * cosAngle, share * kPericentre * sinAngle, 0.0};
        mCentreVelocities[i] = {-share * speed * sinAngle, share * speed * cosAngle, 0.0};
    }
    const double back = kDuration * kPassageShare;
    const std::size_t stepCount = StepsFor(back);
    for (std::size_t i = 0; i < stepCount; ++i) {
        MoveCentres(-back / static_cast<double>(stepCount));
    }
}

void GalaxyModel_cls::PlaceDiscParticle(std::size_t index, Random_cls& random) {
    const Galaxy_cls& galaxy = kGalaxies[GalaxyOf(TypeOf(index))];
    const double radius = DiscRadius(galaxy, random.Uniform());
    const double angle = random.Angle();
    const double height = galaxy.mDiscThickness * random.Gauss();
    const double heightPhase = galaxy.mDiscThickness * random.Gauss();
    const double revolution = Revolution(galaxy, std::hypot(radius, height));
    // Height and vertical speed are independent, otherwise the whole disc would pulse.
    Place(index, Lean({radius * std::cos(angle), radius * std::sin(angle), height}, galaxy),
          Lean({-radius * revolution * std::sin(angle), radius * revolution * std::cos(angle),
                heightPhase * revolution},
               galaxy));
}

/// Circular orbits whose planes point everywhere keep the bulge a steady ball.
void GalaxyModel_cls::PlaceBulgeParticle(std::size_t index, Random_cls& random) {
    const Galaxy_cls& galaxy = kGalaxies[GalaxyOf(TypeOf(index))];
    const double radius = BulgeRadius(galaxy, random.Uniform());
    const double cosPolar = 2.0 * random.Uniform() - 1.0;
    const double sinPolar = std::sqrt(1.0 - cosPolar * cosPolar);
    const double angle = random.Angle();
    const double direction = random.Angle();
    const double speed = radius * Revolution(galaxy, radius);
    const double alongMeridian = speed * std::cos(direction);
    const double alongParallel = speed * std::sin(direction);
    Place(index,
          {radius * sinPolar * std::cos(angle), radius * sinPolar * std::sin(angle), radius * cosPolar},
          {alongMeridian * cosPolar * std::cos(angle) - alongParallel * std::sin(angle),
           alongMeridian * cosPolar * std::sin(angle) + alongParallel * std::cos(angle),
           -alongMeridian * sinPolar});
}

/// Position and velocity are relative to the centre of the particle's own galaxy.
void GalaxyModel_cls::Place(std::size_t index, const Vector_cls& offset, const Vector_cls& velocity) {
    const std::size_t galaxy = GalaxyOf(TypeOf(index));
    mX[index] = mCentres[galaxy].mX + offset.mX;
    mY[index] = mCentres[galaxy].mY + offset.mY;
    mZ[index] = mCentres[galaxy].mZ + offset.mZ;
    mVx[index] = mCentreVelocities[galaxy].mX + velocity.mX;
    mVy[index] = mCentreVelocities[galaxy].mY + velocity.mY;
    mVz[index] = mCentreVelocities[galaxy].mZ + velocity.mZ;
}

std::size_t GalaxyModel_cls::StepsFor(double duration) {
    return static_cast<std::size_t>(std::ceil(duration / kLongestStep));
}

void GalaxyModel_cls::Advance(double duration, std::size_t stepCount, unsigned threadCount) {
    const double step = duration / static_cast<double>(stepCount);
    std::vector<Positions> path;
    path.reserve(stepCount + 1);
    path.push_back(mCentres);
    for (std::size_t i = 0; i < stepCount; ++i) {
        MoveCentres(step);
        path.push_back(mCentres);
    }

    const auto moveShare = [&](std::size_t share) {
        for (std::size_t begin = share * kBlockSize; begin < ParticleCount();
             begin += threadCount * kBlockSize) {
            MoveBlock(begin, std::min(begin + kBlockSize, ParticleCount()), step, path);
        }
    };
    std::vector<std::jthread> helpers;
    for (unsigned i = 1; i < threadCount; ++i) {
        helpers.emplace_back(moveShare, i);
    }
    moveShare(0);
}

void GalaxyModel_cls::MoveCentres(double step) {
    KickCentres(0.5 * step);
    for (std::size_t i = 0; i < kGalaxyCount; ++i) {
        mCentres[i].mX += step * mCentreVelocities[i].mX;
        mCentres[i].mY += step * mCentreVelocities[i].mY;
        mCentres[i].mZ += step * mCentreVelocities[i].mZ;
    }
    KickCentres(0.5 * step);
}

/// Both centres feel a common softening, otherwise they would not pull each other equally.
void GalaxyModel_cls::KickCentres(double step) {
    const Vector_cls apart = Difference(mCentres[1], mCentres[0]);
    double squared = apart.mX * apart.mX + apart.mY * apart.mY + apart.mZ * apart.mZ;
    for (const Galaxy_cls& galaxy : kGalaxies) {
        squared += galaxy.mSoftening * galaxy.mSoftening;
    }
    const double pull = step / (squared * std::sqrt(squared));
    for (std::size_t i = 0; i < kGalaxyCount; ++i) {
        const double factor = i == 0 ? pull * kGalaxies[1].mMass : -pull * kGalaxies[0].mMass;
        mCentreVelocities[i].mX += factor * apart.mX;
        mCentreVelocities[i].mY += factor * apart.mY;
        mCentreVelocities[i].mZ += factor * apart.mZ;
    }
}

/// Kick, drift, kick; the second half kick of a step and the first one of the next are done as one.
void GalaxyModel_cls::MoveBlock(std::size_t begin, std::size_t end, double step,
                                const std::vector<Positions>& path) {
    KickBlock(begin, end, 0.5 * step, path.front());
    for (std::size_t i = 1; i < path.size(); ++i) {
        DriftBlock(begin, end, step);
        KickBlock(begin, end, i + 1 < path.size() ? step : 0.5 * step, path[i]);
    }
}

void GalaxyModel_cls::DriftBlock(std::size_t begin, std::size_t end, double step) {
    for (std::size_t i = begin; i < end; ++i) {
        mX[i] += step * mVx[i];
        mY[i] += step * mVy[i];
        mZ[i] += step * mVz[i];
    }
}

void GalaxyModel_cls::KickBlock(std::size_t begin, std::size_t end, double step, const Positions& centres) {
    for (std::size_t g = 0; g < kGalaxyCount; ++g) {
        const Vector_cls centre = centres[g];
        const double mass = step * kGalaxies[g].mMass;
        const double softening = kGalaxies[g].mSoftening * kGalaxies[g].mSoftening;
        for (std::size_t i = begin; i < end; ++i) {
            const double dx = centre.mX - mX[i];
            const double dy = centre.mY - mY[i];
            const double dz = centre.mZ - mZ[i];
            const double squared = dx * dx + dy * dy + dz * dz + softening;
            const double pull = mass / (squared * std::sqrt(squared));
            mVx[i] += pull * dx;
            mVy[i] += pull * dy;
            mVz[i] += pull * dz;
        }
    }
}

Particle_cls GalaxyModel_cls::Particle(std::size_t index) const {
    const Type type = TypeOf(index);
    const Vector_cls velocity{mVx[index], mVy[index], mVz[index]};
    const double ownSpeed = Length(Difference(velocity, mCentreVelocities[GalaxyOf(type)]));
    return {static_cast<float>(mX[index]),
            static_cast<float>(mY[index]),
            static_cast<float>(mZ[index]),
            static_cast<float>(velocity.mX),
            static_cast<float>(velocity.mY),
            static_cast<float>(velocity.mZ),
            type == kDiscA || type == kDiscB ? kDiscRadius : kBulgeRadius,
            static_cast<std::int32_t>(index + 1),
            type,
            static_cast<float>(ownSpeed)};
}
