#include <gtest/gtest.h>
#include <wx/image.h>

#include <cmath>
#include <functional>
#include <tuple>

#include "render/clsOpenGL.h"
#include "render/clsSphereModel.h"
#include "render/clsSpriteBatch.h"
#include "render/clsThinning.h"
#include "seam/clsResourcePath.h"
#include "support/DrawStage.h"
#include "support/FakeClock.h"
#include "support/RecordingMessage.h"
#include "support/SpecialNumbers.h"
#include "support/TempFolder.h"

namespace {

using Picture = std::vector<uint8_t>;

/// Draws particle after particle by the fixed function, each with calls of its own, in the draw order.
class PlainDrawing {
  public:
    explicit PlainDrawing(DrawStage_cls& stage) : mStage(stage), mState(stage.MakeState()) {}

    Picture Draw() {
        mStage.Prepare();
        const DrawOption_cls& option = mStage.mOption;
        DrawOrder_cls order;
        const auto entries = order.ZSortAtFBO0(
            mState.GetCount(), option.GetStep(), mState.GetPosition(), option.mSortOrder.mValue,
            {.mCamera = mStage.GetCamera(), .mDirection = {0, 0, -1}, .mIsOrthographic = false});
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_BLEND);
        for (const ArrayAndIndex_cls& entry : entries) DrawOne(static_cast<size_t>(entry.mIndex));
        glPopAttrib();
        return mStage.Read();
    }

  private:
    void DrawOne(size_t i) {
        const bool isMixed = mStage.mOption.mClassify.mValue == DrawOption_cls::kAllAttributes;
        const uint8_t type = isMixed ? mState.GetType()[i] : 0;
        GLAttribute_cls& attribute = *mStage.mAttributes[type];
        const unsigned int drawn = attribute.mDrawType.mValue;
        const int step = mStage.mOption.GetStep();
        const bool isSingleBillboard = !isMixed && drawn == SnapAttribute_cls::kBillboard;
        const auto form = isSingleBillboard ? Thinning_cls::Form::Unclamped : Thinning_cls::Form::Clamped;
        const float radius =
            attribute.GetDrawnRadius(mState.GetRadius()[i], Thinning_cls::GetRadiusFactor(step, form));
        const float alpha = attribute.GetDrawnAlpha(mState.GetColor()[4 * i + 3], radius,
                                                    Thinning_cls::GetAlphaFactor(step, form));
        glColor4f(mState.GetColor()[4 * i], mState.GetColor()[4 * i + 1], mState.GetColor()[4 * i + 2],
                  alpha);
        glBlendFunc(GL_SRC_ALPHA, attribute.mBlendType.mValue == 0 ? GL_ONE_MINUS_SRC_ALPHA : GL_ONE);
        const float* p = mState.GetPosition() + 3 * i;
        glDepthMask(GL_FALSE);
        if (drawn == SnapAttribute_cls::kPoint) {
            glPointSize(static_cast<float>(attribute.mPointSize.mValue));
            glBegin(GL_POINTS);
            glVertex3fv(p);
            glEnd();
        }
        if (drawn == SnapAttribute_cls::kBillboard || drawn == SnapAttribute_cls::kBoth)
            DrawBillboard(p, radius, attribute.GetTextureName());
        if (drawn == SnapAttribute_cls::kSphere || drawn == SnapAttribute_cls::kBoth)
            DrawSphere(p, radius, attribute);
    }

    static void DrawBillboard(const float* p, float radius, unsigned int texture) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
        glBegin(GL_QUADS);
        for (const auto& [x, y] : {std::pair(0, 0), {1, 0}, {1, 1}, {0, 1}}) {
            glTexCoord2i(x, 1 - y);
            glVertex3f(p[0] + radius * static_cast<float>(2 * x - 1),
                       p[1] + radius * static_cast<float>(2 * y - 1), p[2]);
        }
        glEnd();
        glDisable(GL_TEXTURE_2D);
    }

    /// A directed white light, the stage's.
    static void DrawSphere(const float* p, float radius, GLAttribute_cls& attribute) {
        glDepthMask(GL_TRUE);
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
        glEnable(GL_NORMALIZE);
        glPushMatrix();
        glLoadIdentity();
        const float length = std::sqrt(1.74F);
        const float light[] = {0.5F / length, 0.7F / length, 1.0F / length, 0.0F};
        glLightfv(GL_LIGHT0, GL_POSITION, light);
        glPopMatrix();
        const std::pair<GLenum, int> materials[] = {{GL_AMBIENT, SnapAttribute_cls::kAmbient},
                                                    {GL_DIFFUSE, SnapAttribute_cls::kDiffuse},
                                                    {GL_SPECULAR, SnapAttribute_cls::kSpecular}};
        for (const auto& [name, curve] : materials)
            glMaterialfv(GL_FRONT_AND_BACK, name, attribute.GetCurve(curve).mConstantColor.mValue.data());
        glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 32.0F);
        const auto& model = SphereModel_cls::Get(1 + static_cast<int>(attribute.mDrawQuality.mValue));
        glPushMatrix();
        glTranslatef(p[0], p[1], p[2]);
        glScalef(radius, radius, radius);
        glBegin(GL_TRIANGLES);
        for (const uint16_t index : model.GetIndices()) {
            glNormal3fv(model.GetVertices()[index].data());
            glVertex3fv(model.GetVertices()[index].data());
        }
        glEnd();
        glPopMatrix();
        glDisable(GL_LIGHTING);
    }

    DrawStage_cls& mStage;
    const SnapData_cls& mState;
};

struct Case {
    const char* name;
    unsigned int classify;
    unsigned int sort;
    int step;
    float radius;
    std::vector<std::string> all;                        ///< settings of all attributes
    std::vector<std::pair<int, std::string>> some = {};  ///< of one
    bool orthographic = false;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class DrawGLTest : public ::testing::TestWithParam<Case> {};

TEST_P(DrawGLTest, IsThePictureOfOneCallPerParticle) {
    const Case& c = GetParam();
    DrawStage_cls stage;
    stage.AddCloud(3000, c.radius);
    stage.Add(0.1F, 0.2F, 4.5F, 0.3F, 0.5F, 1);    // larger than any point sprite
    stage.Add(-2.45F, 0.2F, 0.0F, 0.4F, 0.5F, 2);  // its middle is outside
    stage.mOption.mClassify.mValue = c.classify;
    stage.mOption.mSortOrder.mValue = c.sort;
    stage.mOption.mDownSizing.mValue = c.step;
    stage.SetOrthographic(c.orthographic);
    for (const std::string& line : c.all) stage.SetAll(line);
    for (const auto& [type, line] : c.some) stage.Set(type, line);
    const Picture plain = PlainDrawing(stage).Draw();
    const Picture ours = stage.Draw();
    const auto difference = PictureDifference_cls::Of(plain, ours);
    EXPECT_LE(difference.mean, 0.1) << "largest " << difference.largest;
    const auto empty = PictureDifference_cls::Of(ours, Picture(ours.size()));
    EXPECT_GT(empty.mean, 20.0) << "there is something to see";
    EXPECT_EQ(GLDrawData_cls::msPercentage, 100);
}

const std::vector<std::string> kPoints = {"DrawType=0", "PointSize=3", "AlphaFactro=0.4"};
const std::vector<std::string> kCurvedPoints = {"DrawType=0", "PointSize=2", "ColUseColorCurve=1"};
const std::vector<std::string> kBillboards = {"DrawType=1", "AlphaFactro=0.3", "ColUseColorCurve=1"};
const std::vector<std::string> kSpheres = {"DrawType=2", "AmbientConstantColor=0.1 0.1 0.3 1"};

INSTANTIATE_TEST_SUITE_P(
    Paths, DrawGLTest,
    ::testing::Values(
        Case{"PointsOfOneColour", 0, 0, 1, 0.1F, kPoints},
        Case{
            "PointsByCurveAdded", 0, 1, 1, 0.1F, kCurvedPoints, {{0, "BlendType=1"}, {0, "AlphaFactro=0.1"}}},
        Case{"PointsThinned", 0, 0, 7, 0.1F, kPoints}, Case{"BillboardsUnsorted", 0, 0, 1, 0.1F, kBillboards},
        Case{"BillboardsSortedThinned", 0, 1, 7, 0.1F, kBillboards},
        Case{"BillboardsNearFirst", 0, 2, 1, 0.1F, kBillboards, {{0, "BlendType=1"}}},
        Case{"BillboardsSmallerThanPixels", 0, 0, 1, 0.01F, {"DrawType=1"}},
        Case{"BillboardsAlphaByRadius",
             0,
             1,
             1,
             0.1F,
             kBillboards,
             {{0, "AlphaType=1"}, {0, "AlphaDependBase=0.05"}, {0, "AlphaMax=0.6"}}},
        Case{"BillboardsConstantRadius",
             0,
             0,
             3,
             0.1F,
             kBillboards,
             {{0, "RadiusType=1"}, {0, "RadiusFactorForConst=0.08"}}},
        Case{"BillboardsOrthographic", 0, 0, 1, 0.1F, kBillboards, {}, true},
        Case{"MixedPointsAndBillboards",
             1,
             1,
             1,
             0.1F,
             kBillboards,
             {{1, "DrawType=0"}, {1, "PointSize=5"}, {2, "DrawType=0"}, {3, "BlendType=1"}}},
        Case{"MixedThinned", 1, 0, 7, 0.1F, kBillboards, {{1, "DrawType=0"}, {2, "BlendType=1"}}},
        Case{"SpheresLow", 0, 2, 1, 0.1F, kSpheres},
        Case{"SpheresHighThinned", 0, 0, 7, 0.1F, kSpheres, {{0, "DrawQuality=2"}}},
        Case{"MixedAll",
             1,
             1,
             5,
             0.1F,
             kBillboards,
             {{1, "DrawType=2"}, {2, "DrawType=0"}, {3, "DrawType=3"}, {3, "DrawQuality=1"}}}),
    [](const auto& test) { return test.param.name; });

TEST(DrawRaysGLTest, RayCastSpheresAreWhereFineTrianglesAre) {
    for (const bool orthographic : {false, true}) {
        DrawStage_cls stage;
        stage.SetOrthographic(orthographic);
        stage.mOption.mClassify.mValue = 0;
        stage.Add(-1.6F, 1.1F, 0.0F, 0.5F, 0, 0);  // off the axis: an ellipse
        stage.Add(0.2F, -0.2F, 1.0F, 0.6F, 0, 0);
        stage.Add(0.5F, -0.2F, 1.0F, 0.6F, 0, 0);   // cuts the other
        stage.Add(2.2F, -1.2F, 0.0F, 0.5F, 0, 0);   // its middle is outside
        stage.Add(-0.4F, -0.6F, 3.9F, 0.4F, 0, 0);  // larger than point sprites may be
        stage.Set(0, "DrawType=2");
        for (const int shader : {0, 1, 2, 3}) {
            stage.Set(0, "ShaderType=" + std::to_string(shader));
            stage.Set(0, "DrawQuality=2");
            const Picture triangles = stage.Draw();
            stage.Set(0, "DrawQuality=3");
            const Picture rays = stage.Draw();
            const double mean = PictureDifference_cls::Of(triangles, rays).mean;
            // Outlines of triangles are a little inside, and tones jump there.
            EXPECT_LT(mean, shader == 3 ? 3.0 : 1.2) << "shader " << shader << " flat " << orthographic;
            EXPECT_GT(PictureDifference_cls::Of(rays, Picture(rays.size())).mean, 25.0) << shader;
        }
    }
}

TEST(DrawRaysGLTest, EveryShaderHasItsOwnLook) {
    DrawStage_cls stage;
    stage.mOption.mClassify.mValue = 0;
    stage.Add(0, 0, 0, 1.5F, 0, 0);
    stage.Set(0, "DrawType=2");
    for (const char* quality : {"DrawQuality=0", "DrawQuality=3"}) {
        stage.Set(0, quality);
        std::vector<Picture> seen;
        for (const char* shader : {"ShaderType=0", "ShaderType=2", "ShaderType=3"}) {
            stage.Set(0, shader);
            seen.push_back(stage.Draw());
            for (size_t i = 0; i + 1 < seen.size(); ++i)
                EXPECT_GT(PictureDifference_cls::Of(seen[i], seen.back()).mean, 0.5) << quality << shader;
        }
    }
}

TEST(DrawRaysGLTest, FogAndSeveralLightsReachAllQualities) {
    DrawStage_cls stage;
    stage.mOption.mClassify.mValue = 0;
    stage.AddCloud(300, 0.2F);
    stage.Set(0, "DrawType=2");
    DrawLight_cls lamp;
    lamp.mIsPositional = true;
    lamp.mVector = {-3, 1, 2};
    lamp.mDiffuse = {0.0F, 0.0F, 1.0F};
    stage.mDraw->SetLightSourceInfo(1, lamp, 1.0, 1.0F);
    const Picture clear = stage.Draw();
    const float grey[] = {0.5F, 0.5F, 0.5F, 1.0F};
    glFogfv(GL_FOG_COLOR, grey);
    for (const GLenum mode : {GL_EXP, GL_EXP2, GL_LINEAR}) {
        glEnable(GL_FOG);
        glFogi(GL_FOG_MODE, static_cast<GLint>(mode));
        glFogf(GL_FOG_DENSITY, 0.15F);
        glFogf(GL_FOG_START, 3.0F);
        glFogf(GL_FOG_END, 8.0F);
        stage.Set(0, "DrawQuality=2");
        const Picture triangles = stage.Draw();
        stage.Set(0, "DrawQuality=3");
        EXPECT_LT(PictureDifference_cls::Of(triangles, stage.Draw()).mean, 2.5) << mode;
        EXPECT_GT(PictureDifference_cls::Of(triangles, clear).mean, 8.0) << mode;
        glDisable(GL_FOG);
    }
}

TEST(DrawBoundsGLTest, ParticlesWithoutPlaceOrSizeAreLeftOut) {
    for (const char* type : {"DrawType=0", "DrawType=1", "DrawType=2", "DrawType=3"}) {
        for (const char* quality : {"DrawQuality=0", "DrawQuality=3"}) {
            DrawStage_cls stage;
            stage.SetAll(type);
            stage.SetAll(quality);
            stage.SetAll("PointSize=20");
            stage.AddCloud(20, 0.2F);
            const Picture sound = stage.Draw();
            stage.Add(NAN, 0, 0, 0.3F, 0, 0);
            stage.Add(0, kInfinity<float>, 0, 0.3F, 0, 1);
            stage.Add(0, 0, -3e38F, 0.3F, 0, 1);
            if (std::string(type) != "DrawType=0") {
                for (const float radius : {0.0F, -1.0F, static_cast<float>(NAN)})
                    stage.Add(0, 0, 0, radius, 0, 2);
            }
            EXPECT_EQ(PictureDifference_cls::Of(sound, stage.Draw()).largest, 0) << type << quality;
            stage.Add(0, 0, -50, 1e30F, 0, 0);
            stage.Draw();  // sane: it ends
        }
    }
}

TEST(DrawBoundsGLTest, DataFarFromTheOriginKeepTheirDigits) {
    // Whole numbers that 1e7 does not round.
    DrawStage_cls stage;
    for (int i = 0; i < 60; ++i)
        stage.Add(static_cast<float>(i % 5 - 2), static_cast<float>(i % 3 - 1), static_cast<float>(i % 4 - 4),
                  0.5F, 0, static_cast<uint8_t>(i % 4));
    stage.SetAll("DrawType=1");
    stage.Set(1, "DrawType=2");
    stage.Set(2, "DrawQuality=3");
    stage.Set(2, "DrawType=2");
    const Picture here = stage.Draw();
    stage.SetPlace({1e7, -2e6, 4e6});
    EXPECT_LT(PictureDifference_cls::Of(here, stage.Draw()).mean, 0.1);
}

TEST(DrawBoundsGLTest, LengthsOfAnySizeGiveTheSamePicture) {
    for (const char* type : {"DrawType=0", "DrawType=1", "DrawType=2", "DrawType=3"}) {
        for (const char* quality : {"DrawQuality=0", "DrawQuality=3"}) {
            for (const bool orthographic : {false, true}) {
                DrawStage_cls stage;
                stage.SetOrthographic(orthographic);
                stage.SetAll(type);
                stage.SetAll(quality);
                stage.AddCloud(200, 0.2F);
                const Picture usual = stage.Draw();
                // Metres of a virus, centimetres of a galaxy and of the universe.
                for (const int power : {-73, 40, 73, 100}) {
                    stage.SetScale(std::ldexp(1.0, power));
                    EXPECT_EQ(PictureDifference_cls::Of(usual, stage.Draw()).largest, 0)
                        << type << " " << quality << " " << orthographic << " 2^" << power;
                }
            }
        }
    }
}

TEST(DrawBoundsGLTest, AnAbortedDrawStopsAndTheNextIsWhole) {
    class FastClock : public FakeClock_cls {
      public:
        long long Now() override { return mNow += 250; }
    };
    for (const char* type : {"DrawType=0", "DrawType=1", "DrawType=2"}) {
        DrawStage_cls stage;
        stage.AddCloud(40000, 0.01F);
        stage.SetAll(type);
        stage.SetAll("PointSize=1");
        for (const unsigned int classify : {0U, 1U}) {
            stage.mOption.mClassify.mValue = classify;
            const Picture whole = stage.Draw();
            const FastClock clock;
            int calls = 0;
            GLDrawData_cls::msStatusObserver = [&] {
                ++calls;
                GLDrawData_cls::msAbort = true;
            };
            const Picture part = stage.Draw();
            GLDrawData_cls::msStatusObserver = {};
            EXPECT_EQ(calls, 1) << type << classify;
            EXPECT_FALSE(part == whole) << type << classify;
            EXPECT_TRUE(stage.Draw() == whole) << type << classify;
        }
    }
}

TEST(DrawBillboardGLTest, TheThreadedPathTakesTheFactorOfAlphaTwice) {
    DrawStage_cls stage;
    stage.mOption.mClassify.mValue = 0;
    stage.Set(0, "DrawType=1");
    stage.Set(0, "ColUseColorCurve=1");
    stage.Set(0, "AlphaFactro=0.5");
    stage.Set(0, "BlendType=1");
    stage.Add(0, 0, 0, 1.0F, 1.0F, 0);
    // All others are behind the camera.
    for (int i = 1; i < 600000; ++i) stage.Add(0, 0, 100, 1.0F, 0, 0);
    const auto reddest = [&] {
        const Picture picture = stage.Draw();
        int red = 0;
        for (size_t i = 0; i < picture.size(); i += 3) red = std::max<int>(red, picture[i]);
        return red;
    };
    const int single = reddest();
    EXPECT_NEAR(single, 127, 3);
    stage.Add(0, 0, 100, 1.0F, 0, 0);
    EXPECT_NEAR(reddest(), 64, 3);
}

TEST(DrawFaultsGLTest, MissingAndBrokenResourcesAreToldOnceAndDrawingGoesOn) {
    const TempFolder_cls folder;
    std::filesystem::create_directory(folder.File("GL"));
    folder.Write("GL/Lighting.glsl", "this is no GLSL");
    folder.Write("GL/Phong.frag", "void main() {");
    folder.Write("notes.png", "no picture");
    folder.Write("empty.png", "");
    wxImage(4, 4).SaveFile(folder.File("solid.png"));
    for (const char* texture : {"gone.png", "notes.png", "empty.png", "solid.png"}) {
        DrawStage_cls stage;
        stage.AddCloud(500, 0.1F);
        stage.SetAll("DrawType=1");
        stage.Set(1, "DrawType=0");
        stage.Set(1, "PointSize=4");
        stage.Set(2, "DrawType=2");
        stage.Set(2, "ShaderType=2");
        stage.Set(2, "DrawQuality=3");
        stage.mOption.mSortOrder.mValue = 1;
        const Picture sound = stage.Draw();

        DrawStage_cls poor;
        ResourcePath_cls::SetProgramFolder(folder.Path().string());
        poor.AddCloud(500, 0.1F);
        for (size_t i = 0; i < 4; ++i) {
            for (size_t k = 0; k < stage.mAttributes[i]->GetItems().GetItems().size(); ++k)
                poor.mAttributes[i]->GetItems().GetItems()[k]->CopyValueFrom(
                    *stage.mAttributes[i]->GetItems().GetItems()[k]);
        }
        poor.SetAll("TexFileBillboard=" + folder.File(texture));
        poor.mOption.mSortOrder.mValue = 1;
        RecordingMessage_cls messages;
        const Picture ours = poor.Draw();
        const size_t told = messages.mSaid.size();
        EXPECT_GE(told, 1U) << texture;
        poor.Draw();
        EXPECT_EQ(messages.mSaid.size(), told) << "once";
        EXPECT_LT(PictureDifference_cls::Of(sound, ours).mean, 4.0) << texture;
    }
}

TEST(DrawShadowGLTest, AShadowedSphereLosesTheLight) {
    DrawStage_cls stage;
    stage.SetAll("DrawType=2");
    stage.SetAll("AmbientConstantColor=0 0 0 1");
    stage.Add(0, -0.5F, 0, 0.5F, 0, 0);
    stage.Add(0.5F, 0.2F, 1, 0.6F, 0, 0);  // between it and the light
    const Picture bright = stage.Draw();
    stage.mOption.mShadow.mValue = DrawOption_cls::kShadowVolume;
    const Picture one = stage.Draw();
    EXPECT_GT(PictureDifference_cls::Of(bright, one).mean, 1.0);
    DrawLight_cls second;
    second.mVector = {-1, 0, 0.2};
    stage.mDraw->SetLightSourceInfo(1, second, 1.0, 1.0F);
    const Picture two = stage.Draw();
    EXPECT_GT(PictureDifference_cls::Of(two, one).mean, 1.0) << "the other light reaches it";
    stage.mOption.mShadow.mValue = DrawOption_cls::kNoShadow;
    EXPECT_GT(PictureDifference_cls::Of(two, stage.Draw()).mean, 0.5);
}

}  // namespace
