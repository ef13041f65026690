#include "interp/clsPreparedCurve.h"

#include <cmath>
#include <limits>

PreparedCurve_cls::PreparedCurve_cls(const ColorCurve_cls& curve) : mCurve(curve) {
    if (!curve.IsOn()) {
        std::array<float, kChannels> constant{};
        curve.GetColor4fNormal(constant.data(), 0.0F);
        mPieces.resize(1);
        std::copy(constant.begin(), constant.end(), mPieces[0].c[0].begin());
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
    MakeTable();
    if (!IsAccurate()) mPieces.clear();
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

void PreparedCurve_cls::MakeTable() {
    mFirst = mPieces.front().start;
    mLast = mPieces.back().start;
    if (mLast == mFirst) return;
    mTableScale = kTableSize / (mLast - mFirst);
    const auto pieceAt = [this](double place) {
        const double t = mFirst + place / mTableScale;
        const auto after = std::partition_point(mPieces.begin(), mPieces.end(),
                                                [t](const Piece& piece) { return piece.start <= t; });
        return static_cast<uint16_t>(std::max<long>(after - mPieces.begin() - 1, 0));
    };
    for (size_t i = 0; i < mTable.size(); ++i) {
        // Half an entry more at both ends covers all rounding.
        mTable[i] = {pieceAt(static_cast<double>(i) - 0.5), pieceAt(static_cast<double>(i) + 1.5)};
    }
}

bool PreparedCurve_cls::IsAccurate() const {
    constexpr int kTestsPerPiece = 16;
    constexpr float kEnd = std::numeric_limits<float>::infinity();
    const auto agrees = [this](float t) {
        std::array<float, kChannels> direct{};
        std::array<float, kChannels> prepared{};
        mCurve.GetColor4fNormal(direct.data(), t);
        Evaluate(prepared.data(), t);
        for (size_t k = 0; k < kChannels; ++k) {
            // Half of what is allowed: between the points tested it may be a little more.
            if (!(std::abs(double{direct[k]} - prepared[k]) <= kTolerance / 2.0)) return false;
        }
        return true;
    };
    for (size_t i = 0; i < mPieces.size(); ++i) {
        const auto key = static_cast<float>(mPieces[i].start);
        if (!agrees(key) || !agrees(std::nextafter(key, -kEnd)) || !agrees(std::nextafter(key, kEnd)))
            return false;
        const double length = i + 1 < mPieces.size() ? mPieces[i + 1].start - mPieces[i].start : 0.0;
        for (int test = 1; test < kTestsPerPiece; ++test) {
            if (!agrees(static_cast<float>(mPieces[i].start + length * test / kTestsPerPiece))) return false;
        }
    }
    return true;
}
