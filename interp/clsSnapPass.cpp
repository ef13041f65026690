#include "interp/clsSnapPass.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

/// The first of the particles 0, stride, 2 stride, ... from `begin` on.
long long RoundUp(int begin, int stride) {
    return (static_cast<long long>(begin) + stride - 1) / stride * stride;
}

/// out = from + rate * tau. Eight at a time, which the compiler turns into vector instructions.
void Advance(float* __restrict out, const float* __restrict from, const float* __restrict rate, float tau,
             size_t begin, size_t end) {
    size_t i = begin;
    for (; i + 8 <= end; i += 8) {
        for (size_t k = i; k < i + 8; ++k) out[k] = from[k] + rate[k] * tau;
    }
    for (; i < end; ++i) out[i] = from[i] + rate[i] * tau;
}

float Length(const float* vector) {
    return std::sqrt(vector[0] * vector[0] + vector[1] * vector[1] + vector[2] * vector[2]);
}

}  // namespace

void SnapPass_cls::InterpolateDataLinear(int begin, int end) const {
    if (stride == 1) {
        const auto first = static_cast<size_t>(begin);
        const auto last = static_cast<size_t>(end);
        Advance(position, source.position, source.velocity, tau, 3 * first, 3 * last);
        Advance(radius, source.radius, source.radiusWork, tau, first, last);
        Advance(value1, source.value1, source.value1Work, tau, first, last);
    } else {
        for (long long i = RoundUp(begin, stride); i < end; i += stride) {
            const auto one = static_cast<size_t>(i);
            Advance(position, source.position, source.velocity, tau, 3 * one, 3 * one + 3);
            Advance(radius, source.radius, source.radiusWork, tau, one, one + 1);
            Advance(value1, source.value1, source.value1Work, tau, one, one + 1);
        }
    }
    PaintColors(begin, end, stride);
}

void SnapPass_cls::Copy(int begin, int end) const {
    const auto first = static_cast<size_t>(begin);
    const auto last = static_cast<size_t>(end);
    std::copy(source.position + 3 * first, source.position + 3 * last, position + 3 * first);
    std::copy(source.radius + first, source.radius + last, radius + first);
    std::copy(source.value1 + first, source.value1 + last, value1 + first);
    PaintColors(begin, end, 1);
}

void SnapPass_cls::PaintColors(int begin, int end, int step) const {
    const uint8_t* type = source.type;
    const auto count = static_cast<size_t>(end - begin);
    // Files mostly hold the particles of one type together.
    if (step == 1 && count > 0 && std::memcmp(type + begin, type + begin + 1, count - 1) == 0) {
        const Paint& paint = PaintOf(type[begin]);
        if (paint.value) {
            paint.curve->GetColors(paint.value + begin, count, paint.scale,
                                   color + 4 * static_cast<size_t>(begin));
            return;
        }
    }
    for (long long i = RoundUp(begin, step); i < end; i += step) {
        const Paint& paint = PaintOf(type[i]);
        const PreparedCurve_cls::Color shown =
            (paint.value ? paint.curve->GetColor(paint.value[i]) : paint.constant) * paint.scale;
        std::memcpy(color + 4 * i, &shown, sizeof shown);
    }
}

void SnapPass_cls::Derive(const SnapSource_cls& source, unsigned int depend, int stride, float* out,
                          int begin, int end) {
    const auto each = [&](const auto& quantity) {
        for (long long i = RoundUp(begin, stride); i < end; i += stride) out[i] = quantity(i);
    };
    const auto length = [&](const float* vectors) {
        each([vectors](long long i) { return Length(vectors + 3 * i); });
    };
    const auto component = [&](const float* vectors, unsigned int axis) {
        each([vectors, axis](long long i) { return vectors[3 * i + axis]; });
    };
    if (depend == ColorCurve_cls::kPosition) {
        length(source.position);
    } else if (depend == ColorCurve_cls::kVelocity) {
        length(source.velocity);
    } else if (depend < ColorCurve_cls::kVelocity) {
        component(source.position, depend - ColorCurve_cls::kPositionX);
    } else if (depend < ColorCurve_cls::kID) {
        component(source.velocity, depend - ColorCurve_cls::kVelocityX);
    } else {
        each([&source](long long i) { return source.id ? static_cast<float>(source.id[i]) : 0.0F; });
    }
}
