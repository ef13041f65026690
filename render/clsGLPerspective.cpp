#include "render/clsGLPerspective.h"

#include <algorithm>
#include <cmath>

#include "render/clsOpenGL.h"

namespace {

/// Pi as it has always been cut here: more digits would shift the angle of saved views.
constexpr double kPi = 3.14159;

}  // namespace

GLPerspective_cls::GLPerspective_cls(int width, int height, double angle, double near, double far)
    : mAngle(angle),
      mNear(near),
      mFar(far),
      mWindowWidth(width),
      mWindowHeight(height),
      mClipWidth(width),
      mClipHeight(height) {}

void GLPerspective_cls::SetWindowSize(int width, int height) {
    mWindowWidth = width;
    mWindowHeight = height;
}

void GLPerspective_cls::SetClipSize(int width, int height) {
    mClipWidth = width;
    mClipHeight = height;
}

double GLPerspective_cls::GetProjectionAngle() const {
    const double aspect = GetClipAspectRatio();
    if (aspect <= 1.0) return mAngle;
    return 2.0 * std::atan(std::tan(mAngle * kPi / 360.0) * aspect) * 180.0 / kPi;
}

GLPerspective_cls::OrthoExtent GLPerspective_cls::GetOrthoExtent(
    const PositionAndDirection_cls& camera) const {
    const double h =
        0.5 / mOrthoScale *
        std::hypot(camera.mPosition[0] - camera.mAnchor[0], camera.mPosition[1] - camera.mAnchor[1],
                   camera.mPosition[2] - camera.mAnchor[2]);
    const double aspect = GetAspectRatio();
    return mOrthoByWidth ? OrthoExtent{h, h / aspect} : OrthoExtent{h * aspect, h};
}

double GLPerspective_cls::UsableScale(double scale) {
    return scale > 0.0 && std::isfinite(scale) ? scale : 1.0;
}

void GLPerspective_cls::SetViewportOnGL() const {
    glViewport(0, 0, mWindowWidth, mWindowHeight);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
}

void GLPerspective_cls::SetPerspectiveOnGL(const PositionAndDirection_cls& camera) const {
    if (!mPerspective) {
        const auto [x, y] = GetOrthoExtent(camera);
        glOrtho(-x, x, -y, y, -mOrthoDepth, mOrthoDepth);
        return;
    }
    const int side = std::max(mWindowWidth, mWindowHeight);
    glViewport((mWindowWidth - side) / 2, (mWindowHeight - side) / 2, side, side);
    gluPerspective(GetProjectionAngle(), 1.0, mNear, mFar);
}

void GLPerspective_cls::Push2DMatrix(int width, int height) {
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, width, 0.0, height, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

void GLPerspective_cls::Pop2DMatrix() {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}
