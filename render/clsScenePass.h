#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "render/clsGLPerspective.h"
#include "render/clsOffscreenBuffer.h"
#include "render/clsOffscreenContext.h"
#include "render/clsPositionAndDirection.h"

class SnapData_cls;

/// Draws whole frames off-screen. Owns the context and the buffer it draws into.
/// Threads: the thread that created it. Failure: Create() gives null and says why.
class ScenePass_cls {
  public:
    static std::unique_ptr<ScenePass_cls> Create(int width, int height, wxString* why);

    /// The camera of all frames: placed so that these particles fill the picture.
    void FitTo(const SnapData_cls& state);
    /// Red, green and blue, 0 to 1, of what no particle covers.
    void SetBackground(std::span<const float> colour) { std::copy_n(colour.begin(), 3, mBackground.begin()); }
    /// Draws particles as points and returns the picture, three bytes a pixel, top row first. Null: no
    /// particles.
    std::vector<uint8_t> Draw(const SnapData_cls* state);

  private:
    ScenePass_cls(std::unique_ptr<OffscreenContext_cls> context, std::unique_ptr<OffscreenBuffer_cls> buffer)
        : mContext(std::move(context)), mBuffer(std::move(buffer)) {}

    std::unique_ptr<OffscreenContext_cls> mContext;
    std::unique_ptr<OffscreenBuffer_cls> mBuffer;
    PositionAndDirection_cls mCamera;
    std::array<float, 3> mBackground{};
    double mNear = 0.03;
    double mFar = 5000.0;
};
