#pragma once

#include <cstdint>
#include <memory>
#include <vector>

/// A frame buffer with colour, depth and stencil to draw one picture into. Needs a current context from its
/// creation to its end. Units: pixels.
/// Failure: Create() gives null when the driver cannot hold a buffer of that size.
class OffscreenBuffer_cls {
  public:
    static std::unique_ptr<OffscreenBuffer_cls> Create(int width, int height);
    ~OffscreenBuffer_cls();
    OffscreenBuffer_cls(const OffscreenBuffer_cls&) = delete;
    OffscreenBuffer_cls& operator=(const OffscreenBuffer_cls&) = delete;

    /// Makes it the target of all drawing.
    void Bind() const;
    /// Copies the picture to the window's own frame buffer of this size: the middle on the middle, and black
    /// around one that is smaller.
    void CopyToWindow(int width, int height) const;
    /// Has the driver begin with what was drawn, without waiting for it.
    void Flush() const;
    /// Waits until all is drawn; the front end lives meanwhile.
    void Finish() const;
    /// Three bytes a pixel, top row first.
    std::vector<uint8_t> ReadRGB() const;

    int GetWidth() const { return mWidth; }
    int GetHeight() const { return mHeight; }

  private:
    OffscreenBuffer_cls(int width, int height) : mWidth(width), mHeight(height) {}

    int mWidth;
    int mHeight;
    unsigned int mFrameBuffer = 0;
    unsigned int mColour = 0;
    unsigned int mDepthStencil = 0;
};
