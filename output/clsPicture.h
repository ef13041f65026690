#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// A picture in memory: three bytes a pixel, the top row first.
struct Picture_cls {
    int mWidth = 0;
    int mHeight = 0;
    std::vector<uint8_t> mRGB{};
};
