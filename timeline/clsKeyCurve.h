#pragma once

#include <span>

#include "timeline/clsKeyFrame.h"

/// The curve through a row of keys: what a time-dependent parameter computes.
/// A view made on the spot. It owns and stores nothing, so any number of threads may evaluate while nobody
/// edits the keys. The keys must be sorted by time and finite; an index must have a key behind it.
class KeyCurve_cls {
  public:
    /// period: the wrap-around of the value (360 for an angle), 0 for none; its sign does not matter.
    KeyCurve_cls(std::span<const KeyFrame_cls> keys, int period);

    /// value = c0 + c1 s + c2 s^2 + c3 s^3 with s from 0 at the segment's key to 1 at the next.
    struct Cubic {
        double c0, c1, c2, c3;
    };

    /// 0 without keys. resolution is the length of one display step: from half a step before a key on, the
    /// segment that starts at that key is in use, so that keys snap to the nearest display step.
    double Evaluate(double t, double resolution) const;
    /// The smallest i with keys[i + 1].time - 0.5 * resolution > t, or the last key's index. Costs log n at
    /// most, and next to nothing where keys lie evenly.
    size_t FindSegment(double t, double resolution) const;

    double Linear(double s, size_t i) const;
    double Hermite(double s, size_t i) const;
    Cubic GetCubic(size_t i) const;
    /// Slope of the curve at t inside a Hermite segment, 0 elsewhere.
    double HermiteVelocityAt(double t) const;

    /// From one value to the other, the shorter way round when periodic. On a tie down to a target above, up
    /// to any other.
    double Difference(double from, double to) const;
    /// Slope from key i to key j; 0 where that is no finite number, as for two keys at one time.
    double Slope(size_t i, size_t j) const;
    /// Slope over both neighbours of a key, one-sided at the ends.
    double AutoVelocity(size_t i) const;

    /// Gives the automatic keys among keys[first] to keys[last - 1] their tangents. A single key keeps what
    /// it has.
    static void AdjustAuto(std::span<KeyFrame_cls> keys, int period, size_t first, size_t last);

  private:
    std::span<const KeyFrame_cls> mKeys;
    double mPeriod;
};
