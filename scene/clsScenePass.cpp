#include "scene/clsScenePass.h"

#include <algorithm>
#include <cmath>

#include "interp/clsSnapData.h"
#include "render/clsGLPerspective.h"
#include "render/clsOpenGL.h"
#include "render/clsPanelShared.h"

namespace {

/// Points small enough to tell many particles apart and large enough to see few.
double PointSizeFor(size_t particles, int height) {
    const double spacing = height / std::sqrt(static_cast<double>(std::max<size_t>(particles, 1)));
    return std::clamp(0.4 * spacing, 1.5 * std::max(1.0, height / 720.0), height / 40.0);
}

/// Opaque points of more particles than this would run together into one flat patch.
constexpr size_t kCrowd = 20000;

}  // namespace

void ScenePass_cls::Draw(const SceneView_cls& view) {
    mMessage.clear();
    ViewCamera_cls camera = view.mCamera;
    camera.mAngle = LimitAngle(camera.mAngle, view.mPanel.mGeometry.mValue, &mMessage);
    DrawScene(view, camera);
    glViewport(0, 0, view.mWidth, view.mHeight);
}

void ScenePass_cls::DrawScene(const SceneView_cls& view, const ViewCamera_cls& camera) {
    const DepthRange_cls depth = DepthRange_cls::Of(view.mPanel, camera.mPose);
    GLPerspective_cls perspective(view.mWidth, view.mHeight, camera.mAngle, depth.mNear, depth.mFar);
    perspective.SetPerspectiveFlag(view.mPanel.mGeometry.mValue != PanelSettings_cls::kOrthographic);
    perspective.SetOrthoDepth(depth.mOrtho);
    perspective.SetOrthoScale(view.mPanel.mOrthoScale.mValue);
    perspective.SetViewportOnGL();
    perspective.SetPerspectiveOnGL(camera.mPose);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    camera.mPose.LookOnGL();

    ClearBuffer();
    if (view.mPanel.mShowData.mValue) DrawData(view);
}

void ScenePass_cls::ClearBuffer() const {
    const auto& colour = mLinks.shared.mBackground.mValue;
    glClearColor(colour[0], colour[1], colour[2], 1.0F);
    // Whoever drew before may have left writes off, and a mask stops clearing too.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT | GL_ACCUM_BUFFER_BIT);
}

void ScenePass_cls::DrawData(const SceneView_cls& view) {
    const SnapData_cls* state = view.mState;
    if (!state || state->GetCount() == 0) return;
    const size_t shown = static_cast<size_t>(state->GetCount()) / static_cast<size_t>(state->GetStride());
    const auto look = shown > kCrowd ? GLDrawData_cls::Look::Glowing : GLDrawData_cls::Look::Opaque;
    GLDrawData_cls().GLDrawPointAll(*state, static_cast<float>(PointSizeFor(shown, view.mHeight)), look);
}
