#include "render/clsScenePass.h"

#include <algorithm>
#include <cmath>

#include "interp/clsSnapData.h"
#include "render/clsFitToData.h"
#include "render/clsGLDrawData.h"
#include "render/clsOpenGL.h"

namespace {

constexpr double kViewAngle = 35.0;

/// Points small enough to tell many particles apart and large enough to see few.
double PointSizeFor(size_t particles, int height) {
    const double spacing = height / std::sqrt(static_cast<double>(std::max<size_t>(particles, 1)));
    return std::clamp(0.4 * spacing, 1.5 * std::max(1.0, height / 720.0), height / 40.0);
}

/// Opaque points of more particles than this would run together into one flat patch.
constexpr size_t kCrowd = 20000;

}  // namespace

std::unique_ptr<ScenePass_cls> ScenePass_cls::Create(int width, int height, wxString* why) {
    auto context = OffscreenContext_cls::Create(why);
    if (!context) return nullptr;
    auto buffer = OffscreenBuffer_cls::Create(width, height);
    if (!buffer) {
        *why = wxString::Format("OpenGL has no frame buffer of %d x %d pixels", width, height);
        return nullptr;
    }
    return std::unique_ptr<ScenePass_cls>(new ScenePass_cls(std::move(context), std::move(buffer)));
}

void ScenePass_cls::FitTo(const SnapData_cls& state) {
    const DataBounds_cls bounds =
        DataBounds_cls::Of({state.GetPosition(), 3 * static_cast<size_t>(state.GetCount())},
                           static_cast<size_t>(state.GetStride()));
    mCamera = FitCamera(bounds, kViewAngle);
    const double distance = mCamera.mPosition[2] - mCamera.mAnchor[2];
    // Data of any unit: the depth range follows the distance.
    mNear = 0.003 * distance;
    mFar = 100.0 * distance;
}

std::vector<uint8_t> ScenePass_cls::Draw(const SnapData_cls* state) {
    mBuffer->Bind();
    GLPerspective_cls perspective(mBuffer->GetWidth(), mBuffer->GetHeight(), kViewAngle, mNear, mFar);
    perspective.SetViewportOnGL();
    perspective.SetPerspectiveOnGL(mCamera);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    mCamera.LookOnGL();

    glClearColor(mBackground[0], mBackground[1], mBackground[2], 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (state && state->GetCount() > 0) {
        const size_t shown = static_cast<size_t>(state->GetCount()) / static_cast<size_t>(state->GetStride());
        const auto look = shown > kCrowd ? GLDrawData_cls::Look::Glowing : GLDrawData_cls::Look::Opaque;
        const double size = PointSizeFor(shown, mBuffer->GetHeight());
        GLDrawData_cls().GLDrawPointAll(*state, static_cast<float>(size), look);
    }
    return mBuffer->ReadRGB();
}
