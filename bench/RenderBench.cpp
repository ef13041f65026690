// Drawing of 10^6 particles off-screen at 1280x720, each beside the bare OpenGL calls that put about the
// same pixels there, in the same run.

#include <wx/image.h>
#include <wx/init.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "interp/clsSnapData.h"
#include "render/clsDrawOption.h"
#include "render/clsGLAttribute.h"
#include "render/clsGLDrawData.h"
#include "render/clsOffscreenBuffer.h"
#include "render/clsOffscreenContext.h"
#include "render/clsOpenGL.h"
#include "render/clsPanelShared.h"
#include "render/clsShadowSettings.h"
#include "render/clsSphereModel.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsLineStream.h"
#include "seam/clsResourcePath.h"
#include "support/Beside.h"

namespace {

constexpr int kMillion = 1000000;
constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr double kAngle = 35.0;
constexpr double kDistance = 4.0;
constexpr double kPi = 3.14159265358979;

/// Radius in data lengths of something `pixels` wide in the middle of the data.
float RadiusOf(double pixels) {
    return static_cast<float>(pixels / kWidth * std::tan(kAngle * kPi / 360.0) * kDistance);
}

/// What the bare loops send: position and colour.
struct Point {
    float position[3];
    float colour[4];
};

/// A cloud of particles in front of the camera, with our drawing of it.
class Stage {
  public:
    explicit Stage(int count) : mCount(static_cast<size_t>(count)) {
        mBuffer->Bind();
        std::mt19937 random(1);
        std::normal_distribution<float> place(0.0F, 0.35F);
        // Farthest first: the order of the particles is that of transparent drawing, which has a bench of its
        // own.
        std::vector<float> depth(mCount);
        for (float& z : depth) z = place(random);
        std::sort(depth.begin(), depth.end());
        for (const float z : depth) mPosition.insert(mPosition.end(), {place(random), place(random), z});
        mValue.resize(mCount);
        for (float& value : mValue) value = static_cast<float>(random() % 1000) / 1000.0F;
        mType.resize(mCount);
        for (uint8_t& type : mType) type = static_cast<uint8_t>(random() % 4);
        mRadius.assign(mCount, 1.0F);
        mNone.resize(3 * mCount);
        for (size_t i = 0; i < 4; ++i) {
            mOwned.push_back(std::make_unique<GLAttribute_cls>(0, static_cast<int>(i)));
            mAttributes[i] = mOwned.back().get();
        }
        mDraw.SetCameraPos({0, 0, kDistance});
        mDraw.SetViewDirection({0, 0, -1}, false);
        mDraw.SetLightSourceInfo(0, {}, 1.0, 1.0F);
    }

    void Set(int type, const wxString& line) {
        LineStream_cls none("");
        mAttributes[static_cast<size_t>(type)]->ReadStrLine(none,
                                                            wxString::Format("SEQ0TYPE%d", type) + line);
    }
    void SetAll(const wxString& line) {
        for (int type = 0; type < 4; ++type) Set(type, line);
    }
    /// Builds the drawable state, and the bare loops' vertices in our draw order.
    void Build() {
        SnapAttributes_cls attributes;
        for (size_t i = 0; i < 4; ++i) attributes[i] = mAttributes[i]->GetSnapAttribute();
        mState.Build({.count = static_cast<int>(mCount),
                      .position = mPosition.data(),
                      .velocity = mNone.data(),
                      .radius = mRadius.data(),
                      .radiusWork = mNone.data(),
                      .value1 = mValue.data(),
                      .value1Work = mNone.data(),
                      .type = mType.data()},
                     attributes, 0.0, 1);
        DrawOrder_cls order;
        const auto entries =
            order.ZSortAtFBO0(mState.GetCount(), 1, mState.GetPosition(), mOption.mSortOrder.mValue,
                              {.mCamera = {0, 0, kDistance}, .mDirection = {0, 0, -1}});
        mOrder.clear();
        mPoints.clear();
        for (const ArrayAndIndex_cls& entry : entries) {
            const auto i = static_cast<size_t>(entry.mIndex);
            mOrder.push_back(i);
            Point& point = mPoints.emplace_back();
            std::copy_n(mState.GetPosition() + 3 * i, 3, point.position);
            std::copy_n(mState.GetColor() + 4 * i, 4, point.colour);
        }
    }
    static void Clear() {
        glViewport(0, (kHeight - kWidth) / 2, kWidth, kWidth);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        gluPerspective(kAngle, 1.0, 0.03, 100.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslated(0.0, 0.0, -kDistance);
        glDepthMask(GL_TRUE);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glDepthMask(GL_FALSE);
        glFinish();
    }
    void Draw() {
        glDepthMask(GL_TRUE);
        mDraw.GLDraw(0, mState, mAttributes);
        glFinish();
    }

    DrawOption_cls mOption;
    DrawAttributes_cls mAttributes{};
    std::vector<Point> mPoints;
    std::vector<size_t> mOrder;

  private:
    wxString mWhy;
    std::unique_ptr<OffscreenContext_cls> mContext = OffscreenContext_cls::Create(&mWhy);
    std::unique_ptr<OffscreenBuffer_cls> mBuffer = OffscreenBuffer_cls::Create(kWidth, kHeight);
    PanelShared_cls mShared;
    ShadowSettings_cls mShadow;
    GLDrawData_cls mDraw{mOption, mShadow, mShared};
    size_t mCount;
    std::vector<float> mPosition, mRadius, mValue, mNone;
    std::vector<uint8_t> mType;
    std::vector<std::unique_ptr<GLAttribute_cls>> mOwned;
    SnapData_cls mState;
};

void PointColourArrays(const Point* base) {
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(Point), base->position);
    glColorPointer(4, GL_FLOAT, sizeof(Point), base->colour);
}

void DisableArrays() {
    for (const GLenum array : {GL_VERTEX_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_NORMAL_ARRAY})
        glDisableClientState(array);
}

/// Vertex buffer and colours, one call.
void BarePoints(const std::vector<Point>& points, float size) {
    glPointSize(size);
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(points.size() * sizeof(Point)), points.data(),
                 GL_STREAM_DRAW);
    PointColourArrays(nullptr);
    glColorPointer(4, GL_FLOAT, sizeof(Point), reinterpret_cast<void*>(sizeof(Point::position)));
    glDrawArrays(GL_POINTS, 0, static_cast<GLsizei>(points.size()));
    DisableArrays();
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDeleteBuffers(1, &buffer);
    glFinish();
}

struct Corner {
    float position[3];
    float place[2];
    float colour[4];
};

/// Rectangles computed from the points, one call.
void BareQuads(const std::vector<Point>& points, float half, GLuint texture, std::vector<Corner>* corners) {
    static constexpr float kX[] = {-1, 1, 1, -1};
    static constexpr float kY[] = {-1, -1, 1, 1};
    corners->resize(4 * points.size());
    for (size_t i = 0; i < points.size(); ++i) {
        for (size_t k = 0; k < 4; ++k) {
            Corner& corner = (*corners)[4 * i + k];
            corner.position[0] = points[i].position[0] + half * kX[k];
            corner.position[1] = points[i].position[1] + half * kY[k];
            corner.position[2] = points[i].position[2];
            corner.place[0] = 0.5F + 0.5F * kX[k];
            corner.place[1] = 0.5F - 0.5F * kY[k];
            std::copy_n(points[i].colour, 4, corner.colour);
        }
    }
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, texture);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(Corner), corners->data()->position);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Corner), corners->data()->place);
    glColorPointer(4, GL_FLOAT, sizeof(Corner), corners->data()->colour);
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(corners->size()));
    DisableArrays();
    glDisable(GL_TEXTURE_2D);
    glFinish();
}

GLuint BareProgram(const char* vertex, const char* fragment) {
    const GLuint program = glCreateProgram();
    for (const auto& [kind, text] : {std::pair(GL_VERTEX_SHADER, vertex), {GL_FRAGMENT_SHADER, fragment}}) {
        const GLuint shader = glCreateShader(kind);
        glShaderSource(shader, 1, &text, nullptr);
        glCompileShader(shader);
        glAttachShader(program, shader);
    }
    glLinkProgram(program);
    return program;
}

/// Sorted or not, by curve or not.
void Points(benchmark::State& state) {
    Stage stage(kMillion);
    stage.mOption.mClassify.mValue = 0;
    stage.mOption.mSortOrder.mValue = 0;
    stage.SetAll(wxString::Format("ColUseColorCurve=%d", static_cast<int>(state.range(0))));
    stage.SetAll("PointSize=2");
    stage.Build();
    MeasureBeside(
        state, [&] { BarePoints(stage.mPoints, 2.0F); }, [&] { stage.Draw(); }, [] { Stage::Clear(); });
}

void Billboards(benchmark::State& state) {
    Stage stage(kMillion);
    stage.mOption.mClassify.mValue = 0;
    stage.SetAll("DrawType=1");
    stage.SetAll("ColUseColorCurve=1");
    stage.SetAll("RadiusType=1");
    const float half = RadiusOf(static_cast<double>(state.range(0)));
    stage.SetAll(wxString::Format("RadiusFactorForConst=%g", static_cast<double>(half)));
    stage.Build();
    std::vector<Corner> corners;
    const GLuint texture = stage.mAttributes[0]->GetTextureName();
    MeasureBeside(
        state, [&] { BareQuads(stage.mPoints, half, texture, &corners); }, [&] { stage.Draw(); },
        [] { Stage::Clear(); });
}

/// Points and billboards of four attributes mixed, with sorted vertices for the bare call.
void DefaultPathMixed(benchmark::State& state) {
    Stage stage(kMillion);
    stage.SetAll("ColUseColorCurve=1");
    stage.SetAll("RadiusType=1");
    stage.SetAll("AlphaFactro=0.3");
    const float half = RadiusOf(8.0);
    stage.SetAll(wxString::Format("RadiusFactorForConst=%g", static_cast<double>(half)));
    stage.Set(0, "DrawType=1");
    stage.Set(2, "DrawType=1");
    stage.SetAll("PointSize=8");
    stage.Build();
    std::vector<Corner> corners;
    const GLuint texture = stage.mAttributes[0]->GetTextureName();
    MeasureBeside(
        state, [&] { BareQuads(stage.mPoints, half, texture, &corners); }, [&] { stage.Draw(); },
        [] { Stage::Clear(); });
}

void RayCastSpheres(benchmark::State& state) {
    Stage stage(kMillion);
    stage.mOption.mClassify.mValue = 0;
    stage.SetAll("DrawType=2");
    stage.SetAll("DrawQuality=3");
    stage.SetAll("RadiusType=1");
    const float radius = RadiusOf(static_cast<double>(state.range(0)));
    stage.SetAll(wxString::Format("RadiusFactorForConst=%g", static_cast<double>(radius)));
    stage.Build();
    const GLuint program = BareProgram(R"(#version 120
        uniform float radius, pixels;
        varying vec3 centre;
        void main() {
            centre = (gl_ModelViewMatrix * gl_Vertex).xyz;
            gl_Position = gl_ProjectionMatrix * vec4(centre, 1.0);
            gl_FrontColor = gl_Color;
            gl_PointSize = 2.0 * radius * pixels / -centre.z + 2.0;
        })",
                                       R"(#version 120
        uniform float radius;
        uniform vec3 ray;
        varying vec3 centre;
        void main() {
            vec3 d = vec3(gl_FragCoord.xy * ray.x + ray.yz, -1.0);
            float a = dot(d, d);
            float b = dot(d, centre);
            float c = dot(centre, centre) - radius * radius;
            float square = b * b - a * c;
            if (square < 0.0) discard;
            float t = (b - sqrt(square)) / a;
            vec3 normal = (t * d - centre) / radius;
            vec3 light = gl_LightSource[0].position.xyz;
            vec3 halfway = gl_LightSource[0].halfVector.xyz;
            gl_FragColor = vec4(0.1 + gl_Color.rgb * max(dot(normal, light), 0.0) +
                                gl_Color.rgb * pow(max(dot(normal, halfway), 0.0), 32.0), 1.0);
            gl_FragDepth = 0.5 - 0.5 * gl_ProjectionMatrix[2][2] + 0.5 * gl_ProjectionMatrix[3][2] / t;
        })");
    MeasureBeside(
        state,
        [&] {
            const float pixel = static_cast<float>(2.0 * std::tan(kAngle * kPi / 360.0) / kWidth);
            glUseProgram(program);
            glUniform1f(glGetUniformLocation(program, "radius"), radius);
            glUniform1f(glGetUniformLocation(program, "pixels"), 1.0F / pixel);
            glUniform3f(glGetUniformLocation(program, "ray"), pixel, -0.5F * kWidth * pixel,
                        -0.5F * kHeight * pixel);
            glDepthMask(GL_TRUE);
            glEnable(GL_VERTEX_PROGRAM_POINT_SIZE);
            PointColourArrays(stage.mPoints.data());
            glDrawArrays(GL_POINTS, 0, kMillion);
            DisableArrays();
            glDisable(GL_VERTEX_PROGRAM_POINT_SIZE);
            glUseProgram(0);
            glFinish();
        },
        [&] { stage.Draw(); }, [] { Stage::Clear(); });
}

/// The quality's triangles, computed once into one buffer.
void TessellatedSpheres(benchmark::State& state) {
    constexpr int kCount = 20000;
    Stage stage(kCount);
    stage.mOption.mClassify.mValue = 0;
    stage.SetAll("DrawType=2");
    stage.SetAll(wxString::Format("DrawQuality=%d", static_cast<int>(state.range(0))));
    stage.SetAll("RadiusType=1");
    const float radius = RadiusOf(24.0);
    stage.SetAll(wxString::Format("RadiusFactorForConst=%g", static_cast<double>(radius)));
    stage.Build();
    const SphereModel_cls& model = SphereModel_cls::Get(1 + static_cast<int>(state.range(0)));
    struct Vertex {
        float position[3];
        float normal[3];
    };
    std::vector<Vertex> vertices;
    std::vector<uint32_t> indices;
    for (const Point& point : stage.mPoints) {
        const auto first = static_cast<uint32_t>(vertices.size());
        for (const auto& corner : model.GetVertices()) {
            Vertex& vertex = vertices.emplace_back();
            for (size_t k = 0; k < 3; ++k) {
                vertex.position[k] = point.position[k] + radius * corner[k];
                vertex.normal[k] = corner[k];
            }
        }
        for (const uint16_t index : model.GetIndices()) indices.push_back(first + index);
    }
    GLuint buffers[2];
    glGenBuffers(2, buffers);
    glBindBuffer(GL_ARRAY_BUFFER, buffers[0]);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(Vertex)), vertices.data(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers[1]);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indices.size() * sizeof(uint32_t)),
                 indices.data(), GL_STATIC_DRAW);
    MeasureBeside(
        state,
        [&] {
            glDepthMask(GL_TRUE);
            glEnable(GL_LIGHTING);
            glEnable(GL_LIGHT0);
            glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 32.0F);
            const float white[] = {1, 1, 1, 1};
            glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, white);
            glBindBuffer(GL_ARRAY_BUFFER, buffers[0]);
            glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers[1]);
            glEnableClientState(GL_VERTEX_ARRAY);
            glEnableClientState(GL_NORMAL_ARRAY);
            glVertexPointer(3, GL_FLOAT, sizeof(Vertex), nullptr);
            glNormalPointer(GL_FLOAT, sizeof(Vertex), reinterpret_cast<void*>(sizeof(Vertex::position)));
            glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(indices.size()), GL_UNSIGNED_INT, nullptr);
            DisableArrays();
            glBindBuffer(GL_ARRAY_BUFFER, 0);
            glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
            glDisable(GL_LIGHTING);
            glFinish();
        },
        [&] { stage.Draw(); }, [] { Stage::Clear(); });
}

BENCHMARK(Points)->ArgName("curve")->Arg(0)->Arg(1)->Iterations(5)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(Billboards)
    ->ArgName("pixels")
    ->Arg(8)
    ->Arg(2)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(DefaultPathMixed)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(RayCastSpheres)
    ->ArgName("pixels")
    ->Arg(12)
    ->Arg(6)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(TessellatedSpheres)
    ->ArgName("quality")
    ->DenseRange(0, 2)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const wxInitializer wx;
    wxInitAllImageHandlers();
    // The shaders and the default picture lie in the folder that this is run in.
    ResourcePath_cls::SetProgramFolder(".");
    SetDiagnosticsOn(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
