#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "render/clsGLPerspective.h"
#include "render/clsOffscreenBuffer.h"
#include "render/clsOffscreenContext.h"
#include "render/clsPositionAndDirection.h"

/// Draws whole frames off-screen. Owns the context and the buffer it draws into.
/// Threads: the thread that created it. Failure: Create() gives null and says why.
class ScenePass_cls {
  public:
    static std::unique_ptr<ScenePass_cls> Create(int width, int height, wxString* why);

    /// The camera of all frames: placed so that these particles fill the picture.
    void FitTo(std::span<const float> positions);
    /// Draws particles as points and returns the picture, three bytes a pixel, top row first.
    std::vector<uint8_t> Draw(std::span<const float> positions, std::span<const uint8_t> types);

  private:
    ScenePass_cls(std::unique_ptr<OffscreenContext_cls> context, std::unique_ptr<OffscreenBuffer_cls> buffer)
        : mContext(std::move(context)), mBuffer(std::move(buffer)) {}

    std::unique_ptr<OffscreenContext_cls> mContext;
    std::unique_ptr<OffscreenBuffer_cls> mBuffer;
    PositionAndDirection_cls mCamera;
    double mNear = 0.03;
    double mFar = 5000.0;
};
