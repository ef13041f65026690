#pragma once

#include <span>
#include <vector>

/// How the values that feed a colour curve are spread: their range, the range without the rare ones at both
/// ends, and how many lie where. Made once for a set of values, of which it keeps the finite ones.
/// Threads: any, one object at a time.
/// Failure: without a finite value the ranges are 0 to 1 and all bins are 0.
class ValueHistogram_cls {
  public:
    struct Range {
        float min = 0.0F;
        float max = 1.0F;
        bool operator==(const Range&) const = default;
    };

    ValueHistogram_cls() = default;
    explicit ValueHistogram_cls(std::vector<float> values);

    size_t GetCount() const { return mValues.size(); }
    Range GetRange() const { return mRange; }
    /// From the value that the `low` part of all values lies below to the one that the `high` part does.
    Range GetPartRange(double low, double high) const;
    /// The number of values in equal parts of a range, from 0 to 1 of the fullest part; values outside are
    /// left out. Roots, so that parts with few particles can be seen beside one with nearly all.
    std::vector<float> GetBins(Range range, size_t count) const;

  private:
    std::vector<float> mValues;
    Range mRange;
};
