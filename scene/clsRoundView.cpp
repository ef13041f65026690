#include "scene/clsRoundView.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "render/clsGLPerspective.h"
#include "render/clsOpenGL.h"

namespace {

/// A mesh this fine, in pixels, bends by a small part of a pixel.
constexpr double kCell = 8.0;
constexpr int kSmallestFace = 16;
constexpr int kLargestFace = 4096;
/// A face is drawn when some direction is this near to it; the mesh may have stepped over a sliver.
constexpr float kNearlySeen = 0.93F;

struct FaceAxes_cls {
    Vector3 direction;
    Vector3 up;
};

/// As cube textures are laid out: their images are upside down.
constexpr std::array<FaceAxes_cls, 6> kFaceAxes = {{{{1, 0, 0}, {0, -1, 0}},
                                                    {{-1, 0, 0}, {0, -1, 0}},
                                                    {{0, 1, 0}, {0, 0, 1}},
                                                    {{0, -1, 0}, {0, 0, -1}},
                                                    {{0, 0, 1}, {0, -1, 0}},
                                                    {{0, 0, -1}, {0, -1, 0}}}};

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

/// A cube texture with a frame buffer to draw into its faces. Lives for one view.
class CubeTarget_cls {
  public:
    explicit CubeTarget_cls(int side) {
        glGetIntegerv(GL_FRAMEBUFFER_BINDING, &mBefore);
        glGenTextures(1, &mTexture);
        glBindTexture(GL_TEXTURE_CUBE_MAP, mTexture);
        for (GLenum face = 0; face < 6; ++face) {
            glTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, GL_RGBA8, side, side, 0, GL_RGBA,
                         GL_UNSIGNED_BYTE, nullptr);
        }
        glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        for (const GLenum axis : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T, GL_TEXTURE_WRAP_R})
            glTexParameteri(GL_TEXTURE_CUBE_MAP, axis, GL_CLAMP_TO_EDGE);
        glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
        glGenRenderbuffers(1, &mDepth);
        glBindRenderbuffer(GL_RENDERBUFFER, mDepth);
        glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, side, side);
        glGenFramebuffers(1, &mFrameBuffer);
    }
    ~CubeTarget_cls() {
        glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(mBefore));
        glDeleteFramebuffers(1, &mFrameBuffer);
        glDeleteRenderbuffers(1, &mDepth);
        glDeleteTextures(1, &mTexture);
    }
    CubeTarget_cls(const CubeTarget_cls&) = delete;
    CubeTarget_cls& operator=(const CubeTarget_cls&) = delete;

    bool BindFace(size_t face) const {
        glBindFramebuffer(GL_FRAMEBUFFER, mFrameBuffer);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0,
                               GL_TEXTURE_CUBE_MAP_POSITIVE_X + static_cast<GLenum>(face), mTexture, 0);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, mDepth);
        return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    }
    void UseTexture() const {
        glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(mBefore));
        glBindTexture(GL_TEXTURE_CUBE_MAP, mTexture);
    }

  private:
    GLint mBefore = 0;
    GLuint mTexture = 0;
    GLuint mDepth = 0;
    GLuint mFrameBuffer = 0;
};

}  // namespace

RoundView_cls::RoundView_cls(Kind kind, int width, int height, double angle)
    : mWidth(width), mHeight(height) {
    const double across = kind == Kind::Fisheye ? std::min(width, height) : width;
    const double scale = Radians(angle) / across;  // of one pixel, in the middle
    mFaceSide = static_cast<int>(std::clamp(2.0 / scale, double{kSmallestFace}, double{kLargestFace}));
    if (kind == Kind::Fisheye) {
        MakeDisc(scale, angle);
    } else {
        MakeRectangle(scale, angle);
    }
}

void RoundView_cls::MakeDisc(double scale, double angle) {
    const double radius = 0.5 * Radians(angle) / scale;
    const int rings = std::max(4, static_cast<int>(radius / kCell));
    const int sectors = std::max(16, static_cast<int>(2.0 * std::numbers::pi * radius / kCell));
    const auto vertex = [&](int ring, int sector) {
        const double r = radius * ring / rings;
        const double turn = 2.0 * std::numbers::pi * sector / sectors;
        const double theta = r * scale;
        return Vertex_cls{
            {static_cast<float>(0.5 * mWidth + r * std::cos(turn)),
             static_cast<float>(0.5 * mHeight + r * std::sin(turn))},
            {static_cast<float>(std::sin(theta) * std::cos(turn)),
             static_cast<float>(std::sin(theta) * std::sin(turn)), static_cast<float>(-std::cos(theta))}};
    };
    for (int ring = 0; ring < rings; ++ring) {
        for (int sector = 0; sector < sectors; ++sector) {
            for (const auto& [r, s] : {std::pair{0, 0}, std::pair{1, 0}, std::pair{1, 1}, std::pair{0, 1}})
                mMesh.push_back(vertex(ring + r, sector + s));
        }
    }
}

void RoundView_cls::MakeRectangle(double scale, double angle) {
    const double halfAngle = 0.5 * Radians(angle);
    const double halfHeight = std::min(0.5 * mHeight, 0.5 * std::numbers::pi / scale);
    const int columns = std::max(4, static_cast<int>(mWidth / kCell));
    const int rows = std::max(4, static_cast<int>(2.0 * halfHeight / kCell));
    const auto vertex = [&](int column, int row) {
        const double x = static_cast<double>(column) / columns;
        const double y = halfHeight * (2.0 * row / rows - 1.0);
        const double longitude = (2.0 * x - 1.0) * halfAngle;
        const double latitude = y * scale;
        return Vertex_cls{{static_cast<float>(mWidth * x), static_cast<float>(0.5 * mHeight + y)},
                          {static_cast<float>(std::cos(latitude) * std::sin(longitude)),
                           static_cast<float>(std::sin(latitude)),
                           static_cast<float>(-std::cos(latitude) * std::cos(longitude))}};
    };
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            for (const auto& [c, r] : {std::pair{0, 0}, std::pair{1, 0}, std::pair{1, 1}, std::pair{0, 1}})
                mMesh.push_back(vertex(column + c, row + r));
        }
    }
}

std::array<bool, 6> RoundView_cls::GetFaces() const {
    std::array<bool, 6> seen{};
    for (const Vertex_cls& vertex : mMesh) {
        const auto& d = vertex.direction;
        const float most = std::max({std::abs(d[0]), std::abs(d[1]), std::abs(d[2])});
        for (size_t axis = 0; axis < 3; ++axis) {
            if (std::abs(d[axis]) >= kNearlySeen * most) seen[2 * axis + (d[axis] > 0.0F ? 0 : 1)] = true;
        }
    }
    return seen;
}

PositionAndDirection_cls RoundView_cls::TurnToFace(const PositionAndDirection_cls& camera, size_t face) {
    const Vector3 front = Unit(camera.mDirection);
    const Vector3 right = Unit(Cross(front, camera.mUp));
    const Vector3 up = Cross(right, front);
    const auto turn = [&](const Vector3& v) {
        Vector3 turned{};
        for (size_t axis = 0; axis < 3; ++axis)
            turned[axis] = v[0] * right[axis] + v[1] * up[axis] - v[2] * front[axis];
        return turned;
    };
    PositionAndDirection_cls pose = camera;
    pose.mDirection = turn(kFaceAxes[face].direction);
    pose.mUp = turn(kFaceAxes[face].up);
    return pose;
}

bool RoundView_cls::Draw(
    const PositionAndDirection_cls& camera,
    const std::function<void(const PositionAndDirection_cls& face, int side)>& drawFace) const {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_CUBE_MAP_TEXTURE_SIZE, &largest);
    const int side = std::min(mFaceSide, static_cast<int>(largest));
    if (side < 1) return false;
    const CubeTarget_cls target(side);
    const auto seen = GetFaces();
    for (size_t face = 0; face < seen.size(); ++face) {
        if (!seen[face]) continue;
        if (!target.BindFace(face)) return false;
        drawFace(TurnToFace(camera, face), side);
    }
    target.UseTexture();
    LayOut();
    return true;
}

void RoundView_cls::LayOut() const {
    glPushAttrib(GL_ENABLE_BIT | GL_TEXTURE_BIT | GL_DEPTH_BUFFER_BIT | GL_COLOR_BUFFER_BIT |
                 GL_TRANSFORM_BIT);
    for (const GLenum off :
         {GL_DEPTH_TEST, GL_BLEND, GL_LIGHTING, GL_FOG, GL_CULL_FACE, GL_ALPHA_TEST, GL_TEXTURE_2D})
        glDisable(off);
    glEnable(GL_TEXTURE_CUBE_MAP);
    glEnable(GL_TEXTURE_CUBE_MAP_SEAMLESS);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    glViewport(0, 0, mWidth, mHeight);
    GLPerspective_cls::Push2DMatrix(mWidth, mHeight);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex_cls), mMesh.front().pixel.data());
    glTexCoordPointer(3, GL_FLOAT, sizeof(Vertex_cls), mMesh.front().direction.data());
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(mMesh.size()));
    glPopClientAttrib();
    GLPerspective_cls::Pop2DMatrix();
    glPopAttrib();
    glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
}
