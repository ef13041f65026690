#include "render/clsGLDrawData.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "interp/clsSnapData.h"
#include "render/clsDrawOption.h"
#include "render/clsDrawProgress.h"
#include "render/clsOpenGL.h"
#include "render/clsPanelShared.h"
#include "render/clsShaderCtrl.h"
#include "seam/clsDiagnostics.h"

std::atomic<bool> GLDrawData_cls::msAbort{false};
std::atomic<int> GLDrawData_cls::msPercentage{0};
std::function<void()> GLDrawData_cls::msStatusObserver;

namespace {

constexpr size_t kPointBlock = 16384;
/// What few particles stand for many must not cost as much as these.
constexpr int kCoarsestLook = 4;

/// Everything that drawing changes, given back at its end.
class SavedGL {
  public:
    SavedGL() {
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
        for (const GLenum stack : {GL_PROJECTION, GL_MODELVIEW}) {
            glMatrixMode(stack);
            glPushMatrix();
        }
        // Whatever the view left on: particles are drawn plainly.
        for (const GLenum what : {GL_ALPHA_TEST, GL_CULL_FACE, GL_LIGHTING, GL_COLOR_MATERIAL,
                                  GL_POINT_SMOOTH, GL_TEXTURE_2D, GL_NORMALIZE})
            glDisable(what);
        glShadeModel(GL_SMOOTH);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        // Arrays are given by their place in memory.
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    }
    ~SavedGL() {
        for (const GLenum stack : {GL_PROJECTION, GL_MODELVIEW}) {
            glMatrixMode(stack);
            glPopMatrix();
        }
        glPopClientAttrib();
        glPopAttrib();
    }
    SavedGL(const SavedGL&) = delete;
    SavedGL& operator=(const SavedGL&) = delete;
};

std::array<float, 4> Opaque(const std::array<float, 3>& colour, float factor) {
    return {colour[0] * factor, colour[1] * factor, colour[2] * factor, 1.0F};
}

}  // namespace

GLDrawData_cls::GLDrawData_cls(const DrawOption_cls& option, const ShadowSettings_cls& shadow,
                               const PanelShared_cls& shared)
    : mOption(option), mShared(shared), mShadowVolume(shadow) {}

GLDrawData_cls::~GLDrawData_cls() = default;

void GLDrawData_cls::SetViewDirection(const Vector3& direction, bool isOrthographic) {
    mView.mDirection = direction;
    mView.mIsOrthographic = isOrthographic;
}

int GLDrawData_cls::GetStep(int coarseness) const {
    const long long step = static_cast<long long>(mOption.GetStep()) * coarseness;
    return static_cast<int>(std::min<long long>(step, std::numeric_limits<int>::max()));
}

int GLDrawData_cls::GetLookStep() const {
    return GetStep(std::min(mCoarseness, kCoarsestLook));
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
    if (state.GetCount() > 0) {
        const DrawView_cls view = DrawView_cls::FromGL(mView.mCamera, state);
        mView.mUnit = view.unit;
        const auto order = mOrder.ZSortAtFBO0(state.GetCount(), GetStep(mCoarseness), state.GetPosition(),
                                              mOption.mSortOrder.mValue, mView);
        const SavedGL saved;
        LoadLights(view, 0);
        view.LoadOnGL();
        ShaderCtrl_cls::Get().SetShaderParamCartoonBoldness(mShared.mCartoonBoldness.mValue);
        GLDrawAttribute({state, attributes, view, order});
    }
    msPercentage.store(100, std::memory_order_relaxed);
}

void GLDrawData_cls::GLDrawAttribute(const Frame& frame) {
    if (mOption.mClassify.mValue == DrawOption_cls::kAllAttributes) {
        GLDrawSequential(frame);
        return;
    }
    switch (frame.attributes[0]->mDrawType.mValue) {
        case SnapAttribute_cls::kPoint:
            if (frame.attributes[0]->GetCurve(SnapAttribute_cls::kColor).IsOn()) {
                GLDrawPointAll(frame);
            } else {
                GLDrawPointArrayElement(frame);
            }
            break;
        case SnapAttribute_cls::kBillboard:
            GLDrawBillboardAll(frame);
            break;
        case SnapAttribute_cls::kSphere:
            GLDrawSphereAll(frame);
            break;
        default:  // a single attribute draws nothing for "Both"
            break;
    }
}

void GLDrawData_cls::GLDrawPointArrayElement(const Frame& frame) {
    // One colour for all, whatever their radius.
    SpriteRule_cls rule =
        SpriteRule_cls::Of(*frame.attributes[0], true, GetLookStep(), Thinning_cls::Form::Clamped);
    if (rule.dependsOnRadius) {
        const GLAttribute_cls::Alpha alpha = frame.attributes[0]->GetAlpha();
        rule.dependsOnRadius = false;
        // The state's colours hold the squared base instead of the factor.
        const float base = alpha.dependBase * alpha.dependBase;
        rule.alphaFactor *= base > 0.0F ? alpha.factor / base : 0.0F;
    }
    DrawPoints(frame, rule);
}

void GLDrawData_cls::GLDrawPointAll(const Frame& frame) {
    DrawPoints(frame,
               SpriteRule_cls::Of(*frame.attributes[0], true, GetLookStep(), Thinning_cls::Form::Clamped));
}

void GLDrawData_cls::DrawPoints(const Frame& frame, const SpriteRule_cls& rule) {
    const SpritePacker_cls packer(frame.view, frame.state);
    DrawProgress_cls progress(frame.order.size());
    mSprites.Begin(frame.view, {.blendType = frame.attributes[0]->mBlendType.mValue});
    for (size_t begin = 0; begin < frame.order.size(); begin += kPointBlock) {
        const auto block = frame.order.subspan(begin, std::min(kPointBlock, frame.order.size() - begin));
        ThreadCaleVertex_cls::Fill(block, packer, rule, &mLists.sprites);
        SpriteBatch_cls::DrawPoints(mLists.sprites.sprites);
        if (!progress.Step(begin)) return;
    }
}

void GLDrawData_cls::GLDrawBillboardAll(const Frame& frame) {
    GLAttribute_cls& attribute = *frame.attributes[0];
    const SpritePacker_cls packer(frame.view, frame.state);
    DrawProgress_cls progress(frame.order.size());
    const bool hasManyColours = attribute.mAlphaType.mValue != SnapAttribute_cls::kConstantAlpha ||
                                attribute.GetCurve(SnapAttribute_cls::kColor).IsOn();
    const bool isThreaded = frame.order.size() > GLDrawBillboard_cls::kLargestSingle && hasManyColours;
    const auto form = mCoarseness > 1 ? Thinning_cls::Form::Clamped : Thinning_cls::Form::Unclamped;
    const auto rule = SpriteRule_cls::Of(attribute, false, GetLookStep(), form, isThreaded);
    mSprites.Begin(frame.view,
                   {.texture = attribute.GetTextureName(), .blendType = attribute.mBlendType.mValue});
    if (isThreaded) {
        mBillboard.DrawThreaded(mSprites, packer, rule, frame.order, progress);
    } else {
        mBillboard.DrawSingle(mSprites, packer, rule, frame.order, progress);
    }
    PrintDiagnostic("DrawBillboardEnd\n");
}

void GLDrawData_cls::GLDrawSphereAll(const Frame& frame) {
    const SphereRule_cls rule(*frame.attributes[0], frame.state, GetLookStep());
    const SpherePacker_cls packer(frame.view, frame.state);
    DrawProgress_cls progress(frame.order.size());
    mSpheres.Begin(frame.view, SphereLookOf(*frame.attributes[0]));
    const size_t chunk = frame.attributes[0]->mDrawQuality.mValue == SphereBatch_cls::kRayCast
                             ? kPointBlock
                             : SphereBatch_cls::kChunk;
    for (size_t begin = 0; begin < frame.order.size(); begin += chunk) {
        mLists.spheres.clear();
        mLists.sphereShapes.clear();
        for (const auto& entry : frame.order.subspan(begin, std::min(chunk, frame.order.size() - begin))) {
            Sphere_cls sphere;
            const auto shape =
                packer.Pack(static_cast<size_t>(entry.mIndex), rule, entry.mAlpha, 1.0F, &sphere);
            if (shape == SpherePacker_cls::Shape::Hidden) continue;
            mLists.spheres.push_back(sphere);
            mLists.sphereShapes.push_back(shape);
        }
        mSpheres.Draw(mLists.spheres, mLists.sphereShapes);
        if (!progress.Step(begin)) return;
    }
}

void GLDrawData_cls::GLDrawSequential(const Frame& frame) {
    SequentialDraw_cls::SphereLooks looks;
    for (size_t i = 0; i < looks.size(); ++i) looks[i] = SphereLookOf(*frame.attributes[i]);
    DrawProgress_cls progress(frame.order.size());
    SequentialDraw_cls draw(frame.view, frame.state, frame.attributes, GetLookStep(), looks, mLists);
    draw.Draw(frame.order, FindShadows(frame), mSprites, mSpheres, progress);
}

SphereBatch_cls::Look GLDrawData_cls::SphereLookOf(const GLAttribute_cls& attribute) const {
    return {.shaderType = attribute.mShaderType.mValue,
            .quality = attribute.mDrawQuality.mValue,
            .blendType = attribute.mBlendType.mValue,
            .lights = mLightNumber,
            .allDirected = AreAllDirected()};
}

SequentialDraw_cls::Shadows GLDrawData_cls::FindShadows(const Frame& frame) {
    if (mOption.mShadow.mValue != DrawOption_cls::kShadowVolume || mLightNumber == 0) return {};
    const float step = Thinning_cls::GetRadiusFactor(GetLookStep(), Thinning_cls::Form::Clamped);
    mShadowRadii.assign(frame.order.size(), 0.0F);
    bool any = false;
    for (size_t i = 0; i < frame.order.size(); ++i) {
        const auto particle = static_cast<size_t>(frame.order[i].mIndex);
        const uint8_t type = frame.state.GetType()[particle];
        const GLAttribute_cls& attribute = *frame.attributes[type < frame.attributes.size() ? type : 0];
        const unsigned int drawn = attribute.mDrawType.mValue;
        if (drawn != SnapAttribute_cls::kSphere && drawn != SnapAttribute_cls::kBoth) continue;
        mShadowRadii[i] = attribute.GetDrawnRadius(frame.state.GetRadius()[particle], step);
        any = true;
    }
    if (!any) return {};
    std::vector<ShadowVolume_cls::Light> lights;
    for (size_t i = 0; i < static_cast<size_t>(mLightNumber); ++i) {
        const Vector3& vector = mLights[i].mVector;
        lights.push_back({static_cast<float>(vector[0]), static_cast<float>(vector[1]),
                          static_cast<float>(vector[2]), mLights[i].mIsPositional ? 1.0F : 0.0F});
    }
    return {.masks = mShadowVolume.FindShadows(frame.order, frame.state.GetPosition(), mShadowRadii, lights),
            .lightLeft = mShadowVolume.GetLightInShadow(),
            .lights = mLightNumber,
            .load = [this, &frame](uint8_t mask) { LoadLights(frame.view, mask); }};
}

bool GLDrawData_cls::AreAllDirected() const {
    return std::none_of(mLights.begin(), mLights.begin() + mLightNumber,
                        [](const DrawLight_cls& light) { return light.mIsPositional; });
}

void GLDrawData_cls::LoadLights(const DrawView_cls& view, uint8_t mask) const {
    glPushMatrix();
    glLoadIdentity();
    for (int i = 0; i < kLights; ++i) {
        const GLenum name = GL_LIGHT0 + static_cast<GLenum>(i);
        if (i >= mLightNumber) {
            glDisable(name);
            continue;
        }
        const DrawLight_cls& light = mLights[static_cast<size_t>(i)];
        const float left = mask >> i & 1 ? mShadowVolume.GetLightInShadow() : 1.0F;
        std::array<float, 4> place{0.0F, 0.0F, 0.0F, 1.0F};
        if (light.mIsPositional) {
            const auto eye = view.EyeOf(light.mVector);
            std::copy(eye.begin(), eye.end(), place.begin());
        } else {
            const auto& m = view.modelView;
            std::array<double, 3> eye{};
            for (size_t row = 0; row < 3; ++row) {
                for (size_t k = 0; k < 3; ++k)
                    eye[row] += static_cast<double>(m[4 * k + row]) * light.mVector[k];
            }
            // Shaders rely on unit directions; a light from nowhere comes from the camera.
            const double length = std::hypot(eye[0], eye[1], eye[2]);
            const bool isSound = length > 0.0 && std::isfinite(length);
            for (size_t k = 0; k < 3; ++k)
                place[k] = isSound ? static_cast<float>(eye[k] / length) : (k == 2 ? 1.0F : 0.0F);
            place[3] = 0.0F;
        }
        glEnable(name);
        glLightfv(name, GL_POSITION, place.data());
        glLightfv(name, GL_AMBIENT, Opaque(light.mAmbient, 1.0F).data());
        glLightfv(name, GL_DIFFUSE, Opaque(light.mDiffuse, left).data());
        glLightfv(name, GL_SPECULAR, Opaque(light.mSpecular, left).data());
    }
    glPopMatrix();
}
