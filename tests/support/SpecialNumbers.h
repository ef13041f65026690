#pragma once

#include <limits>

template <class Real>
inline constexpr Real kNaN = std::numeric_limits<Real>::quiet_NaN();
template <class Real>
inline constexpr Real kInfinity = std::numeric_limits<Real>::infinity();
