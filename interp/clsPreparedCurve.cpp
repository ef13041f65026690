#include "interp/clsPreparedCurve.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

PreparedCurve_cls::PreparedCurve_cls(const ColorCurve_cls& curve) : mCurve(curve) {
    if (!curve.IsOn()) {
        std::array<float, kChannels> constant{};
        curve.GetColor4fNormal(constant.data(), 0.0F);
        mPieces.resize(1);
        std::copy(constant.begin(), constant.end(), mPieces[0].c[0].begin());
        MakeTable();
        return;
    }
    std::vector<double> positions;
    for (int channel = 0; channel < curve.GetParamGroup().GetDimension(); ++channel) {
        for (const KeyFrame_cls& key : curve.GetParamGroup().GetParameter(channel).GetKeys()) {
            positions.push_back(key.mTime);
        }
    }
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    if (positions.empty() || positions.size() > kMaxPieces) return;

    for (size_t i = 0; i + 1 < positions.size(); ++i) AddPiece(positions[i], positions[i + 1]);
    AddPiece(positions.back(), positions.back());
    if (!MakeTable() || !IsAccurate()) mPieces.clear();
}

/// Between two keys a channel is a cubic at most, so four of its values tell all of it.
void PreparedCurve_cls::AddPiece(double start, double end) {
    Piece& piece = mPieces.emplace_back();
    piece.start = start;
    const double step = (end - start) / 4.0;
    for (size_t k = 0; k < kChannels; ++k) {
        const Parameters_cls& channel = mCurve.GetParamGroup().GetParameter(static_cast<int>(k));
        std::array<double, 4> f{};
        for (size_t i = 0; i < f.size(); ++i)
            f[i] = channel.Evaluate(start + static_cast<double>(i) * step, 0.0);
        piece.c[0][k] = f[0];
        if (step == 0.0) continue;
        const double d1 = f[1] - f[0];
        const double d2 = f[2] - 2.0 * f[1] + f[0];
        const double d3 = f[3] - 3.0 * f[2] + 3.0 * f[1] - f[0];
        piece.c[1][k] = (d1 - d2 / 2.0 + d3 / 3.0) / step;
        piece.c[2][k] = (d2 / 2.0 - d3 / 2.0) / (step * step);
        piece.c[3][k] = d3 / 6.0 / (step * step * step);
    }
}

/// Stretches begin at multiples of a power of two, so that floats find them without rounding.
bool PreparedCurve_cls::MakeTable() {
    const double range = mPieces.back().start - mPieces.front().start;
    const double length = range > 0.0 ? std::exp2(std::ceil(std::log2(range / kTableSize))) : 1.0;
    const double first = std::floor(mPieces.front().start / length);
    const double last = std::floor(mPieces.back().start / length);
    // Positions far out have no room for numbers between them.
    if (!(last - first < static_cast<double>(mTable.size()))) return false;
    mTableFirst = static_cast<float>(first * length);
    mTableScale = static_cast<float>(1.0 / length);
    mTableLast = static_cast<float>(last - first);
    for (size_t i = 0; i <= static_cast<size_t>(last - first); ++i) {
        MakeEntry(i, (first + static_cast<double>(i)) * length, length);
    }
    return true;
}

void PreparedCurve_cls::MakeEntry(size_t index, double begin, double length) {
    const Piece& piece = FindPiece(begin);
    // A key inside makes a stretch bent; the last key does so when it is not at the very beginning.
    if (begin < piece.start || (&piece != &mPieces.back() && (&piece)[1].start < begin + length)) return;
    const double u = begin - piece.start;
    bool straight = true;
    for (size_t k = 0; k < kChannels; ++k) {
        const double color = piece.At(k, u);
        const double change = piece.At(k, u + length) - color;
        const double middle = piece.At(k, u + length / 2.0);
        straight = straight && std::abs(color + change / 2.0 - middle) < kTolerance / 8.0;
        mTable[index].color[k] = static_cast<float>(color);
        mTable[index].change[k] = static_cast<float>(change);
    }
    mStraight[index] = straight;
}

const PreparedCurve_cls::Piece& PreparedCurve_cls::FindPiece(double t) const {
    const auto after = std::partition_point(mPieces.begin() + 1, mPieces.end(),
                                            [t](const Piece& piece) { return piece.start <= t; });
    return *(after - 1);
}

PreparedCurve_cls::Color PreparedCurve_cls::EvaluatePiece(double position) const {
    const double last = mPieces.back().start;
    const double t = std::max(position < last ? position : last, mPieces.front().start);
    const Piece& piece = FindPiece(t);
    Color color{};
    for (size_t k = 0; k < kChannels; ++k) color[k] = static_cast<float>(piece.At(k, t - piece.start));
    return color;
}

void PreparedCurve_cls::GetColors(const float* values, size_t count, Color scale, float* out) const {
    using Indices = int32_t __attribute__((vector_size(16)));
    const Color zero{};
    const Color last = zero + mTableLast;
    const float offset = mCurve.GetOffset();
    const float range = mCurve.GetRange();
    size_t i = 0;
    for (; !IsDirect() && i + 4 <= count; i += 4) {
        // Evaluate() for four at once.
        Color t;
        std::memcpy(&t, values + i, sizeof t);
        t = (t - offset) / range;
        Color place = (t - mTableFirst) * mTableScale;
        place = place < last ? place : last;
        place = place > zero ? place : zero;
        const auto indices = __builtin_convertvector(place, Indices);
        const Color part = place - __builtin_convertvector(indices, Color);
        for (int k = 0; k < 4; ++k) {
            const auto index = static_cast<size_t>(indices[k]);
            const Entry& entry = mTable[index];
            Color color = entry.color + entry.change * part[k];
            if (!mStraight[index]) color = EvaluatePiece(t[k]);
            color *= scale;
            std::memcpy(out + 4 * (i + static_cast<size_t>(k)), &color, sizeof color);
        }
    }
    for (; i < count; ++i) {
        const Color color = GetColor(values[i]) * scale;
        std::memcpy(out + 4 * i, &color, sizeof color);
    }
}

bool PreparedCurve_cls::IsAccurate() const {
    constexpr int kTestsPerPiece = 16;
    constexpr float kEnd = std::numeric_limits<float>::infinity();
    const auto agrees = [this](float t) {
        std::array<float, kChannels> direct{};
        mCurve.GetColor4fNormal(direct.data(), t);
        const Color prepared = Evaluate(t);
        for (size_t k = 0; k < kChannels; ++k) {
            // Half of what is allowed: between the points tested it may be a little more.
            if (!(std::abs(direct[k] - double{prepared[k]}) <= kTolerance / 2.0)) return false;
        }
        return true;
    };
    for (size_t i = 0; i < mPieces.size(); ++i) {
        const auto key = static_cast<float>(mPieces[i].start);
        if (!agrees(key) || !agrees(std::nextafter(key, -kEnd)) || !agrees(std::nextafter(key, kEnd)))
            return false;
        const double length = i + 1 < mPieces.size() ? mPieces[i + 1].start - mPieces[i].start : 0.0;
        for (int test = 0; test < kTestsPerPiece; ++test) {
            // Not at round fractions, where there is nothing to round.
            const double t = mPieces[i].start + length * (test + 0.382) / kTestsPerPiece;
            if (!agrees(static_cast<float>(t))) return false;
        }
    }
    return true;
}
