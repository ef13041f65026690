#include "render/clsGLDrawData.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "interp/clsSnapData.h"
#include "render/clsDrawOption.h"
#include "render/clsOpenGL.h"

namespace {

struct ColouredPoint {
    float position[3];
    uint8_t colour[4];
};

/// Types 0 to 4: told apart by hue and by lightness.
constexpr std::array<std::array<uint8_t, 4>, 5> kTypeColour = {{{255, 196, 120, 255},
                                                                {110, 175, 255, 255},
                                                                {255, 120, 90, 255},
                                                                {150, 235, 215, 255},
                                                                {215, 150, 255, 255}}};

/// What one glowing point adds to the picture.
constexpr float kGlow = 0.18F;

std::vector<ColouredPoint> MakePoints(const SnapData_cls& state) {
    std::vector<ColouredPoint> points;
    const auto count = static_cast<size_t>(state.GetCount());
    const auto stride = static_cast<size_t>(state.GetStride());
    points.reserve(count / stride + 1);
    for (size_t i = 0; i < count; i += stride) {
        const float* p = state.GetPosition() + 3 * i;
        if (!std::isfinite(p[0]) || !std::isfinite(p[1]) || !std::isfinite(p[2])) continue;
        const auto& c = kTypeColour[std::min<size_t>(state.GetType()[i], kTypeColour.size() - 1)];
        points.push_back({{p[0], p[1], p[2]}, {c[0], c[1], c[2], c[3]}});
    }
    return points;
}

}  // namespace

std::atomic<bool> GLDrawData_cls::msAbort{false};
std::atomic<int> GLDrawData_cls::msPercentage{0};
std::function<void()> GLDrawData_cls::msStatusObserver;

GLDrawData_cls::GLDrawData_cls(const DrawOption_cls& option, const ShadowSettings_cls& shadow,
                               const PanelShared_cls& shared)
    : mOption(option), mShadow(shadow), mShared(shared) {}

GLDrawData_cls::~GLDrawData_cls() = default;

void GLDrawData_cls::SetViewDirection(const Vector3& direction, bool isOrthographic) {
    mView.mDirection = direction;
    mView.mIsOrthographic = isOrthographic;
}

void GLDrawData_cls::SetLightSourceInfo(int index, const DrawLight_cls& light, double lengthScale,
                                        float colourScale) {
    if (index < 0 || index >= kLights) return;
    DrawLight_cls& own = mLights[static_cast<size_t>(index)];
    own = light;
    if (light.mIsPositional) {
        for (double& x : own.mVector) x *= lengthScale;
    }
    for (auto* colour : {&own.mAmbient, &own.mDiffuse, &own.mSpecular}) {
        for (float& channel : *colour) channel *= colourScale;
    }
    mLightNumber = std::max(mLightNumber, index + 1);
}

void GLDrawData_cls::GLDraw(int, const SnapData_cls& state, const DrawAttributes_cls& attributes) {
    msAbort.store(false, std::memory_order_relaxed);
    msPercentage.store(0, std::memory_order_relaxed);
    const auto order = mOrder.ZSortAtFBO0(state.GetCount(), mOption.GetStep(), state.GetPosition(),
                                          mOption.mSortOrder.mValue, mView);
    glPushAttrib(GL_ENABLE_BIT | GL_POINT_BIT | GL_COLOR_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glPointSize(static_cast<float>(attributes[0]->mPointSize.mValue));
    glBegin(GL_POINTS);
    for (const ArrayAndIndex_cls& entry : order) {
        const auto i = static_cast<size_t>(entry.mIndex);
        glColor4fv(state.GetColor() + 4 * i);
        glVertex3fv(state.GetPosition() + 3 * i);
    }
    glEnd();
    glPopAttrib();
    msPercentage.store(100, std::memory_order_relaxed);
}

void GLDrawData_cls::GLDrawPointAll(const SnapData_cls& state, float pointSize, Look look) {
    const std::vector<ColouredPoint> points = MakePoints(state);
    if (points.empty()) return;

    glPushAttrib(GL_ENABLE_BIT | GL_POINT_BIT | GL_COLOR_BUFFER_BIT);
    glEnable(GL_POINT_SMOOTH);
    if (look == Look::Opaque) {
        // Round points: the corners of the square are cut off by their coverage.
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_ALPHA_TEST);
        glAlphaFunc(GL_GREATER, 0.5F);
    } else {
        glEnable(GL_BLEND);
        glBlendColor(0.0F, 0.0F, 0.0F, kGlow);
        glBlendFunc(GL_CONSTANT_ALPHA, GL_ONE);
    }
    glPointSize(pointSize);

    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ColouredPoint), points.data()->position);
    glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(ColouredPoint), points.data()->colour);
    glDrawArrays(GL_POINTS, 0, static_cast<GLsizei>(points.size()));
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glPopAttrib();
}
