#include "scene/clsSceneGuides.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "interp/clsPeriodicBoundary.h"
#include "interp/clsSnapData.h"
#include "render/clsOpenGL.h"
#include "scene/clsLightSRCCtrl.h"
#include "scene/clsOverlayText.h"

namespace {

/// Grid lines to either side of the anchor, and how many of them cross the view.
constexpr int kHalfLines = 10;
constexpr double kStepsToAnchor = 10.0;
/// Of the distance to the anchor.
constexpr double kMarkSize = 0.02;
constexpr double kCameraSize = 0.08;
constexpr size_t kSamples = 1000;
/// Pixels between a place and its text.
constexpr int kTagGap = 4;

constexpr SceneGuides_cls::Colour kAxisColours[3] = {
    {0.90F, 0.35F, 0.32F, 0.9F}, {0.42F, 0.75F, 0.36F, 0.9F}, {0.36F, 0.55F, 0.95F, 0.9F}};
constexpr SceneGuides_cls::Colour kAnchorColour{0.95F, 0.80F, 0.30F, 0.9F};
constexpr SceneGuides_cls::Colour kCameraColour{0.55F, 0.80F, 0.95F, 0.9F};
constexpr SceneGuides_cls::Colour kBoxColour{0.60F, 0.62F, 0.68F, 0.8F};

wxString FormatCoordinate(double value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr;
    return wxString::FromAscii(text, static_cast<size_t>(end - text));
}

/// How many of some particles lie in the box from `low` to `low` + `length`, along the axes.
size_t CountInside(const SnapData_cls& state, const Vector3& low, const Vector3& length) {
    const auto count = static_cast<size_t>(state.GetCount());
    const auto stride = static_cast<size_t>(state.GetStride());
    const size_t step = stride * std::max<size_t>(1, count / stride / kSamples);
    size_t inside = 0;
    for (size_t i = 0; i < count; i += step) {
        const float* p = state.GetPosition() + 3 * i;
        bool in = true;
        for (size_t axis = 0; axis < 3; ++axis)
            in = in && p[axis] >= low[axis] && static_cast<double>(p[axis]) <= low[axis] + length[axis];
        inside += in ? 1 : 0;
    }
    return inside;
}

}  // namespace

SceneGuides_cls::SceneGuides_cls(const PositionAndDirection_cls& camera,
                                 const std::array<float, 3>& background)
    : mCamera(camera), mDistance(Length(Add(camera.mPosition, camera.mAnchor, -1.0))) {
    if (!(mDistance > 0.0) || !std::isfinite(mDistance)) mDistance = 1.0;
    const bool dark = background[0] + background[1] + background[2] < 1.5F;
    const float tone = dark ? 0.65F : 0.30F;
    mFaint = {tone, tone, tone, 0.45F};
    mClear = {tone, tone, tone, 0.0F};
}

double SceneGuides_cls::RoundUp(double length) {
    const double decade = std::pow(10.0, std::floor(std::log10(length)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        // A little slack: the logarithm of a round number may come out just below or above.
        if (factor * decade >= length * (1.0 - 1e-9)) return factor * decade;
    }
    return 10.0 * decade;
}

void SceneGuides_cls::AddLine(const Vector3& from, const Vector3& to, const Colour& start,
                              const Colour& end) {
    const auto relative = [this](const Vector3& p) {
        const Vector3 r = Add(p, mCamera.mPosition, -1.0);
        return std::array<float, 3>{static_cast<float>(r[0]), static_cast<float>(r[1]),
                                    static_cast<float>(r[2])};
    };
    mLines.push_back({relative(from), start});
    mLines.push_back({relative(to), end});
}

void SceneGuides_cls::AddGrid(unsigned int gridType, bool withTags) {
    const double step = RoundUp(mDistance / kStepsToAnchor);
    const auto type = static_cast<GridType>(gridType);
    const bool all = type == GridType::kThreePlanes;
    if (type == GridType::kPlaneXY || all) AddPlane(0, 1, step, withTags);
    if (type == GridType::kPlaneXZ || all) AddPlane(0, 2, step, withTags && !all);
    if (type == GridType::kPlaneYZ || all) AddPlane(1, 2, step, withTags && !all);
    if (type == GridType::kAxes) AddAxes(kHalfLines * step, withTags);
}

void SceneGuides_cls::AddPlane(size_t across, size_t along, double step, bool withTags) {
    // At whole steps, so that the lines stand still while the anchor moves.
    const auto middle = [&](size_t axis) { return step * std::round(mCamera.mAnchor[axis] / step); };
    const double half = kHalfLines * step;
    for (const auto& [fixed, running] : {std::pair{across, along}, std::pair{along, across}}) {
        for (int i = -kHalfLines; i <= kHalfLines; ++i) {
            Vector3 centre{};
            centre[fixed] = middle(fixed) + i * step;
            centre[running] = middle(running);
            Vector3 low = centre;
            Vector3 high = centre;
            low[running] -= half;
            high[running] += half;
            // Lines fade outwards, so that the grid has no border.
            Colour colour = centre[fixed] == 0.0 ? kAxisColours[running] : mFaint;
            colour[3] *= 1.0F - static_cast<float>(std::abs(i)) / (kHalfLines + 1);
            Colour faded = colour;
            faded[3] = 0.0F;
            AddLine(centre, low, colour, faded);
            AddLine(centre, high, colour, faded);
            if (withTags && i % 2 == 0) mTags.push_back({centre, FormatCoordinate(centre[fixed])});
        }
    }
}

void SceneGuides_cls::AddAxes(double length, bool withTags) {
    constexpr const char* kNames[3] = {"x", "y", "z"};
    for (size_t axis = 0; axis < 3; ++axis) {
        Vector3 end{};
        end[axis] = length;
        AddLine({}, end, kAxisColours[axis]);
        if (withTags) mTags.push_back({end, kNames[axis]});
    }
}

void SceneGuides_cls::AddBox(const PeriodicBoundary_cls& periodic, const SnapData_cls* state) {
    if (periodic.mType.mValue == PeriodicBoundary_cls::kNone) return;
    std::array<Vector3, 3> edges{};
    Vector3 diagonal{};
    for (int k = 0; k < 3; ++k) {
        std::array<float, 3> edge{};
        periodic.GetBoundaryVector(edge.data(), k);
        for (size_t axis = 0; axis < 3; ++axis) {
            edges[static_cast<size_t>(k)][axis] = edge[axis];
            diagonal[axis] += edge[axis];
        }
    }
    const Vector3 centred = Add({}, diagonal, -0.5);
    const bool around = state && CountInside(*state, centred, diagonal) > CountInside(*state, {}, diagonal);
    const Vector3 origin = around ? centred : Vector3{};
    for (size_t k = 0; k < 3; ++k) {
        const Vector3& a = edges[(k + 1) % 3];
        const Vector3& b = edges[(k + 2) % 3];
        for (const Vector3& start : {origin, Add(origin, a), Add(origin, b), Add(Add(origin, a), b)})
            AddLine(start, Add(start, edges[k]), kBoxColour);
    }
}

void SceneGuides_cls::AddAnchor() {
    for (size_t axis = 0; axis < 3; ++axis) {
        Vector3 arm{};
        arm[axis] = kMarkSize * mDistance;
        AddLine(Add(mCamera.mAnchor, arm, -1.0), Add(mCamera.mAnchor, arm), kAnchorColour);
    }
}

void SceneGuides_cls::AddLights(const LightSRCCtrl_cls& lights, double time) {
    for (int number = 0; number < LightSRCCtrl_cls::kLights; ++number) {
        const LightSRC_cls& light = lights.GetLight(number);
        if (!light.mVisible.mValue || light.mType.mValue != LightSRC_cls::kFromPosition) continue;
        const Vector3 place = light.GetVector(LightSRC_cls::kPosition, time);
        const auto diffuse = light.GetVector(LightSRC_cls::kDiffuse, time);
        const Colour colour{static_cast<float>(diffuse[0]), static_cast<float>(diffuse[1]),
                            static_cast<float>(diffuse[2]), 1.0F};
        constexpr Vector3 kRays[] = {{1, 0, 0},        {0, 1, 0},        {0, 0, 1},       {0.5, 0.5, 0.5},
                                     {0.5, 0.5, -0.5}, {0.5, -0.5, 0.5}, {-0.5, 0.5, 0.5}};
        for (const Vector3& ray : kRays)
            AddLine(Add(place, ray, -kMarkSize * mDistance), Add(place, ray, kMarkSize * mDistance), colour);
        mTags.push_back({place, wxString::Format("Light %d", number)});
    }
}

void SceneGuides_cls::AddCamera(const ViewCamera_cls& camera) {
    const PositionAndDirection_cls& pose = camera.mPose;
    const Vector3 forward = Unit(pose.mDirection);
    const Vector3 right = Unit(Cross(forward, pose.mUp));
    const Vector3 up = Cross(right, forward);
    const double depth = kCameraSize * mDistance;
    const double half = depth * std::tan(std::min(camera.mAngle, 120.0) * M_PI / 360.0);
    std::array<Vector3, 4> corners{};
    for (size_t i = 0; i < 4; ++i) {
        const Vector3 centre = Add(pose.mPosition, forward, depth);
        corners[i] = Add(Add(centre, right, i == 0 || i == 3 ? -half : half), up, i < 2 ? -half : half);
    }
    for (size_t i = 0; i < 4; ++i) {
        AddLine(pose.mPosition, corners[i], kCameraColour);
        AddLine(corners[i], corners[(i + 1) % 4], kCameraColour);
    }
    AddLine(pose.mPosition, pose.mAnchor, kCameraColour, mClear);
}

void SceneGuides_cls::Draw(bool smooth, bool inverted) const {
    if (mLines.empty()) return;
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_LINE_BIT | GL_HINT_BIT |
                 GL_CURRENT_BIT);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    PositionAndDirection_cls turned = mCamera;
    turned.mPosition = {0.0, 0.0, 0.0};
    turned.LookOnGL();

    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_DEPTH_TEST);
    // Translucent lines hide nothing.
    glDepthMask(GL_FALSE);
    if (inverted) {
        glEnable(GL_COLOR_LOGIC_OP);
        glLogicOp(GL_XOR);
    } else {
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    }
    if (smooth) {
        glEnable(GL_LINE_SMOOTH);
        glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
        glLineWidth(1.5F);
    }
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(Vertex_cls), mLines.front().position.data());
    glColorPointer(4, GL_FLOAT, sizeof(Vertex_cls), mLines.front().colour.data());
    glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(mLines.size()));
    glPopClientAttrib();
    glPopMatrix();
    glPopAttrib();
}

void SceneGuides_cls::DrawTags(const OverlayText_cls& text) const {
    if (mTags.empty()) return;
    std::array<GLdouble, 16> projection{};
    std::array<GLint, 4> viewport{};
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    const Vector3 forward = Unit(mCamera.mDirection);
    const Vector3 right = Unit(Cross(forward, mCamera.mUp));
    const Vector3 up = Cross(right, forward);
    for (const Tag_cls& tag : mTags) {
        const Vector3 p = Add(tag.position, mCamera.mPosition, -1.0);
        const std::array<double, 4> eye = {Dot(p, right), Dot(p, up), -Dot(p, forward), 1.0};
        const auto clip = [&](size_t row) {
            double sum = 0.0;
            for (size_t k = 0; k < 4; ++k) sum += projection[4 * k + row] * eye[k];
            return sum;
        };
        const double w = clip(3);
        const double x = clip(0) / w;
        const double y = clip(1) / w;
        if (!(w > 0.0) || !(std::abs(x) <= 1.0) || !(std::abs(y) <= 1.0)) continue;
        text.DrawLine(tag.text, viewport[0] + static_cast<int>(0.5 * (x + 1.0) * viewport[2]) + kTagGap,
                      viewport[1] + static_cast<int>(0.5 * (y + 1.0) * viewport[3]) + kTagGap);
    }
}
