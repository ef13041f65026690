#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// A picture in memory: three bytes a pixel, the top row first; and how well it is to be written as JPEG, 1
/// to 100.
struct Picture_cls {
    /// The longest side that may be asked for: OpenGL draws none longer.
    static constexpr int kLargestSide = 16384;

    int mWidth = 0;
    int mHeight = 0;
    std::vector<uint8_t> mRGB{};
    int mJpegQuality = 92;
};
