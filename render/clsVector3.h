#pragma once

#include <array>
#include <cmath>

using Vector3 = std::array<double, 3>;

// What is done with places and directions. Plain numbers; any thread.

inline Vector3 Add(const Vector3& a, const Vector3& b, double factor = 1.0) {
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

inline double Dot(const Vector3& a, const Vector3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Vector3 Cross(const Vector3& a, const Vector3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

inline double Length(const Vector3& a) {
    return std::hypot(a[0], a[1], a[2]);
}

/// The direction as a vector of length 1; null for one without length, or with a length that is not finite.
inline Vector3 Unit(const Vector3& a) {
    const double length = Length(a);
    return length > 0.0 && std::isfinite(length) ? Vector3{a[0] / length, a[1] / length, a[2] / length}
                                                 : Vector3{};
}
