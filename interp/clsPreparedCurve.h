#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "render/clsColorCurve.h"

/// A colour curve made ready for one pass over many particles. Evaluating its keys for every particle
/// would cost many times as much. Between two keys a channel is a cubic at most: that is one Piece. A
/// table cuts the curve into short stretches; where a stretch is straight, as nearly all are, its entry
/// gives the colour at once, elsewhere the piece does. Every channel is within kTolerance of the
/// curve's own GetColor4fScaled() at all keys and at points between them, where it is tested when the object
/// is made, and close to that elsewhere; a curve that fails (hundreds of keys, channels far from 0..1) is
/// evaluated directly instead. Threads: made on one thread, after the curve's PreCalcScaleFactor(); then read
/// by any number.
class PreparedCurve_cls {
  public:
    static constexpr double kTolerance = 1e-6;

    /// The curve must outlive the object, and nobody edits it meanwhile.
    explicit PreparedCurve_cls(const ColorCurve_cls& curve);

    /// Red, green, blue and alpha as the processor works on them at once.
    using Color = float __attribute__((vector_size(16)));

    bool IsDirect() const { return mPieces.empty(); }
    /// The colours of many values, each times `scale`, into four floats for each.
    void GetColors(const float* values, size_t count, Color scale, float* out) const;
    Color GetColor(float value) const {
        if (!IsDirect()) return Evaluate(mCurve.GetPosition(value));
        Color color{};
        mCurve.GetColor4fScaled(reinterpret_cast<float*>(&color), value);
        return color;
    }

  private:
    static constexpr size_t kChannels = 4;
    static constexpr size_t kTableSize = 512;
    static constexpr size_t kMaxPieces = 256;

    struct Entry {
        Color color{};
        Color change{};  ///< over the length of the stretch
    };
    /// Channel = c[0] + u (c[1] + u (c[2] + u c[3])), u the distance from the start.
    struct Piece {
        double start = 0.0;
        std::array<std::array<double, kChannels>, 4> c{};
        double At(size_t channel, double u) const {
            return c[0][channel] + u * (c[1][channel] + u * (c[2][channel] + u * c[3][channel]));
        }
    };

    void AddPiece(double start, double end);
    bool MakeTable();
    void MakeEntry(size_t index, double begin, double length);
    const Piece& FindPiece(double t) const;
    Color EvaluatePiece(double position) const;
    bool IsAccurate() const;

    Color Evaluate(float t) const {
        // Beyond the table its ends hold; a position that is no number counts as beyond the last key.
        float place = (t - mTableFirst) * mTableScale;
        place = place < mTableLast ? place : mTableLast;
        place = place > 0.0F ? place : 0.0F;
        const auto index = static_cast<uint32_t>(place);
        if (!mStraight[index]) return EvaluatePiece(t);
        return mTable[index].color + mTable[index].change * (place - static_cast<float>(index));
    }

    const ColorCurve_cls& mCurve;
    std::vector<Piece> mPieces;  ///< ascending; the last one begins at the last key
    std::array<Entry, kTableSize + 2> mTable{};
    std::array<bool, kTableSize + 2> mStraight{};
    float mTableFirst = 0.0F;
    float mTableScale = 0.0F;
    float mTableLast = 0.0F;  ///< the last entry's number
};
