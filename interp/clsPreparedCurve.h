#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "render/clsColorCurve.h"

/// A colour curve made ready for one pass over many particles: a polynomial for every stretch between two
/// keys, and a table that finds the stretch. Evaluating the keys for every particle would cost many times as
/// much. Every channel stays within kTolerance of the curve's own GetColor4fScaled(). That is tested when the
/// object is made, at all keys and between them; a curve that fails (hundreds of keys, steep ones, channels
/// far from 0..1) is evaluated directly instead. Threads: made on one thread, after the curve's
/// PreCalcScaleFactor(); then read by any number.
class PreparedCurve_cls {
  public:
    static constexpr double kTolerance = 1e-6;

    /// The curve must outlive the object, and nobody edits it meanwhile.
    explicit PreparedCurve_cls(const ColorCurve_cls& curve);

    bool IsDirect() const { return mPieces.empty(); }
    /// The colour of a value, four floats.
    void GetColor(float* out, float value) const {
        if (IsDirect()) {
            mCurve.GetColor4fScaled(out, value);
        } else {
            Evaluate(out, mCurve.GetPosition(value));
        }
    }

  private:
    static constexpr size_t kChannels = 4;
    static constexpr size_t kTableSize = 1024;
    static constexpr size_t kMaxPieces = 256;

    /// Channel = c[0] + u (c[1] + u (c[2] + u c[3])), u the distance from the start.
    struct Piece {
        double start = 0.0;
        std::array<std::array<double, kChannels>, 4> c{};
    };
    /// The pieces that a stretch of the table can lie in.
    struct Candidates {
        uint16_t first = 0;
        uint16_t last = 0;
    };

    void AddPiece(double start, double end);
    void MakeTable();
    bool IsAccurate() const;

    void Evaluate(float* out, double position) const {
        // Beyond the keys the first and the last of them hold; a position that is no number counts as beyond.
        const double t = std::max(position < mLast ? position : mLast, mFirst);
        const Candidates candidates = mTable[static_cast<size_t>((t - mFirst) * mTableScale)];
        size_t index = candidates.first;
        while (index < candidates.last && t >= mPieces[index + 1].start) ++index;
        const Piece& piece = mPieces[index];
        const double u = t - piece.start;
        for (size_t k = 0; k < kChannels; ++k) {
            out[k] = static_cast<float>(piece.c[0][k] +
                                        u * (piece.c[1][k] + u * (piece.c[2][k] + u * piece.c[3][k])));
        }
    }

    const ColorCurve_cls& mCurve;
    std::vector<Piece> mPieces;  ///< ascending; the last one begins at the last key
    std::array<Candidates, kTableSize + 1> mTable{};
    double mFirst = 0.0;
    double mLast = 0.0;
    double mTableScale = 0.0;
};
