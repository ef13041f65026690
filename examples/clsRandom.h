#ifndef EXAMPLES_CLSRANDOM_H
#define EXAMPLES_CLSRANDOM_H

#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>

/// Random numbers that depend on the seed alone. The engine is fully specified by the standard, the
/// standard distributions are not: so the bits are turned into numbers here.
class Random_cls {
  public:
    /// The stream keeps apart sequences that are drawn for different purposes from the same seed.
    Random_cls(std::uint64_t seed, std::uint64_t stream) : mEngine(Mix(seed + Mix(stream))) {}

    /// Evenly spread over [0, 1).
    double Uniform() { return static_cast<double>(mEngine() >> 11) * 0x1p-53; }

    /// Evenly spread over the whole numbers 0 .. count - 1; the bias of the remainder is below 2^-32.
    std::uint64_t Below(std::uint64_t count) { return mEngine() % count; }

    double Angle() { return 2.0 * std::numbers::pi * Uniform(); }

    double Gauss() {
        // 1 - u is never zero, u may be.
        const double length = std::sqrt(-2.0 * std::log(1.0 - Uniform()));
        return length * std::cos(Angle());
    }

  private:
    /// Neighbouring seeds must not give related sequences.
    static std::uint64_t Mix(std::uint64_t bits) {
        bits += 0x9e3779b97f4a7c15U;
        bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9U;
        bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebU;
        return bits ^ (bits >> 31);
    }

    std::mt19937_64 mEngine;
};

#endif
