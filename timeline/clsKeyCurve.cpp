#include "timeline/clsKeyCurve.h"

#include <algorithm>
#include <cmath>

namespace {

bool IsHermite(unsigned int type) {
    return type >= KeyFrame_cls::kHermiteAuto && type <= KeyFrame_cls::kHermite;
}

}  // namespace

KeyCurve_cls::KeyCurve_cls(std::span<const KeyFrame_cls> keys, int period)
    : mKeys(keys), mPeriod(std::abs(static_cast<double>(period))) {}

double KeyCurve_cls::Evaluate(double t, double resolution) const {
    if (mKeys.empty()) return 0.0;
    if (t <= mKeys.front().mTime) return mKeys.front().mValue;
    if (t >= mKeys.back().mTime) return mKeys.back().mValue;

    const size_t i = FindSegment(t, resolution);
    const KeyFrame_cls& key = mKeys[i];
    if (i + 1 == mKeys.size() || key.mType == KeyFrame_cls::kStep) return key.mValue;

    // Slightly negative where the display step has pulled t to a key it has not reached yet.
    const double s = (t - key.mTime) / (mKeys[i + 1].mTime - key.mTime);
    return IsHermite(key.mType) ? Hermite(s, i) : Linear(s, i);
}

size_t KeyCurve_cls::FindSegment(double t, double resolution) const {
    const size_t n = mKeys.size();
    if (n < 2) return 0;
    // The very subtraction and comparison of the rule. With sorted times it holds from one key on, so any
    // search for that key finds what a scan finds, rounding and odd resolutions included.
    const double halfStep = 0.5 * resolution;
    const auto isBehind = [&](size_t i) { return mKeys[i].mTime - halfStep > t; };

    // Keys lie about evenly: start where t would be then, go on in growing steps until it is passed, and
    // halve what is left. Key `low` is not behind t, key `high` is.
    const double last = static_cast<double>(n - 1);
    const double guess = (t - mKeys.front().mTime) / (mKeys.back().mTime - mKeys.front().mTime) * last;
    size_t low = 0;
    size_t high = n;
    const size_t start = guess >= 1.0 ? static_cast<size_t>(std::min(guess, last)) : 1;
    size_t step = 1;
    if (isBehind(start)) {
        high = start;
        while (high > step && isBehind(high - step)) {
            high -= step;
            step *= 2;
        }
        if (high > step) low = high - step;
    } else {
        low = start;
        while (n - low > step && !isBehind(low + step)) {
            low += step;
            step *= 2;
        }
        if (n - low > step) high = low + step;
    }
    while (high - low > 1) {
        const size_t middle = low + (high - low) / 2;
        (isBehind(middle) ? high : low) = middle;
    }
    return low;
}

double KeyCurve_cls::Linear(double s, size_t i) const {
    return mKeys[i].mValue + s * Difference(mKeys[i].mValue, mKeys[i + 1].mValue);
}

double KeyCurve_cls::Hermite(double s, size_t i) const {
    const Cubic c = GetCubic(i);
    return c.c0 + s * (c.c1 + s * (c.c2 + s * c.c3));
}

KeyCurve_cls::Cubic KeyCurve_cls::GetCubic(size_t i) const {
    const KeyFrame_cls& from = mKeys[i];
    const KeyFrame_cls& to = mKeys[i + 1];
    const double h = to.mTime - from.mTime;
    const double p0 = from.mValue;
    const double p1 = mPeriod == 0.0 ? to.mValue : p0 + Difference(p0, to.mValue);
    const double m0 = from.GetHermiteVelocity() * h;
    const double m1 = to.GetHermiteVelocity() * h;
    return {p0, m0, -3.0 * p0 - 2.0 * m0 + 3.0 * p1 - m1, 2.0 * p0 + m0 - 2.0 * p1 + m1};
}

double KeyCurve_cls::Difference(double from, double to) const {
    const double straight = to - from;
    if (mPeriod == 0.0) return straight;
    // What is left when whole periods are taken off; steps of one period would not end for tiny ones.
    const double rest = std::fmod(std::abs(straight), mPeriod);
    const double across = mPeriod - rest;
    if (straight > 0.0) return across > rest ? rest : -across;
    return across > rest ? 0.0 - rest : across;
}

double KeyCurve_cls::Slope(size_t i, size_t j) const {
    if (i == j) return 0.0;
    const double slope = Difference(mKeys[i].mValue, mKeys[j].mValue) / (mKeys[j].mTime - mKeys[i].mTime);
    return std::isfinite(slope) ? slope : 0.0;
}

double KeyCurve_cls::AutoVelocity(size_t i) const {
    return Slope(i == 0 ? 0 : i - 1, std::min(i + 1, mKeys.size() - 1));
}

void KeyCurve_cls::AdjustAuto(std::span<KeyFrame_cls> keys, int period, size_t first, size_t last) {
    if (keys.size() < 2) return;
    const KeyCurve_cls curve(keys, period);
    for (size_t i = first; i < std::min(last, keys.size()); ++i) {
        KeyFrame_cls& key = keys[i];
        if (key.mType != KeyFrame_cls::kHermiteAuto && key.mType != KeyFrame_cls::kHermiteSemiAuto) continue;
        key.mVelocity = curve.AutoVelocity(i);
        if (key.mType == KeyFrame_cls::kHermiteAuto) key.mEaseFactor = key.mVelocity;
    }
}

double KeyCurve_cls::HermiteVelocityAt(double t) const {
    if (mKeys.empty() || t <= mKeys.front().mTime || t >= mKeys.back().mTime) return 0.0;
    const size_t i = FindSegment(t, 0.0);
    if (i + 1 == mKeys.size() || !IsHermite(mKeys[i].mType)) return 0.0;
    const double h = mKeys[i + 1].mTime - mKeys[i].mTime;
    const double s = (t - mKeys[i].mTime) / h;
    const Cubic c = GetCubic(i);
    return (c.c1 + s * (2.0 * c.c2 + s * 3.0 * c.c3)) / h;
}
