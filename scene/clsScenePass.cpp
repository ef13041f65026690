#include "scene/clsScenePass.h"

#include "data/clsPDataSeqCtrl.h"
#include "interp/clsSnapData.h"
#include "render/clsGLAttribute.h"
#include "render/clsGLPerspective.h"
#include "render/clsOpenGL.h"
#include "render/clsPanelShared.h"
#include "scene/clsLegendBar.h"
#include "scene/clsLightSRCCtrl.h"
#include "scene/clsOverlayText.h"
#include "scene/clsRoundView.h"
#include "scene/clsSceneGuides.h"

namespace {

/// Of the view that a cube's face is drawn with.
constexpr double kFaceAngle = 90.0;

std::array<float, 3> ToColour(const Vector3& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

}  // namespace

ScenePass_cls::ScenePass_cls(const Links& links)
    : mLinks(links), mDrawData(links.option, links.shadow, links.shared) {}

void ScenePass_cls::Draw(const SceneView_cls& view) {
    mMessage.clear();
    UpdateLights(view.mTime);
    const unsigned int geometry = view.mPanel.mGeometry.mValue;
    ViewCamera_cls camera = view.mCamera;
    camera.mAngle = LimitAngle(camera.mAngle, geometry, &mMessage);
    if (geometry == PanelSettings_cls::kFisheye || geometry == PanelSettings_cls::kPanoramic) {
        DrawRound(view, camera);
    } else {
        const bool flat = geometry == PanelSettings_cls::kOrthographic;
        DrawScene(view, camera, flat ? Projection::Orthographic : Projection::Perspective, view.mWidth,
                  view.mHeight);
        DrawAids(view, camera);
    }
    glViewport(0, 0, view.mWidth, view.mHeight);
    DrawOverlay(view);
}

void ScenePass_cls::DrawRound(const SceneView_cls& view, const ViewCamera_cls& camera) {
    const bool fisheye = view.mPanel.mGeometry.mValue == PanelSettings_cls::kFisheye;
    const RoundView_cls round(fisheye ? RoundView_cls::Kind::Fisheye : RoundView_cls::Kind::Panoramic,
                              view.mWidth, view.mHeight, camera.mAngle);
    ClearBuffer();
    const bool drawn = round.Draw(camera.mPose, [&](const PositionAndDirection_cls& face, int side) {
        DrawScene(view, {face, kFaceAngle}, Projection::Perspective, side, side);
    });
    if (!drawn)
        mMessage += "OpenGL cannot draw into the faces of a cube here: no fisheye or panoramic view.\n";
}

void ScenePass_cls::DrawScene(const SceneView_cls& view, const ViewCamera_cls& camera, Projection projection,
                              int width, int height) {
    const DepthRange_cls depth = DepthRange_cls::Of(view.mPanel, camera.mPose);
    GLPerspective_cls perspective(width, height, camera.mAngle, depth.mNear, depth.mFar);
    perspective.SetPerspectiveFlag(projection == Projection::Perspective);
    perspective.SetOrthoDepth(depth.mOrtho);
    perspective.SetOrthoScale(view.mPanel.mOrthoScale.mValue);
    perspective.SetViewportOnGL();
    perspective.SetPerspectiveOnGL(camera.mPose);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    camera.mPose.LookOnGL();

    ClearBuffer();
    DrawGuides(view, camera);
    if (view.mPanel.mShowData.mValue) DrawData(view, camera, projection);
}

void ScenePass_cls::ClearBuffer() const {
    const auto colour = GetBackground();
    glClearColor(colour[0], colour[1], colour[2], 1.0F);
    // Whoever drew before may have left writes off, and a mask stops clearing too.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT | GL_ACCUM_BUFFER_BIT);
}

void ScenePass_cls::UpdateLights(double time) {
    mDrawData.ClearLights();
    int shining = 0;
    for (int number = 0; number < LightSRCCtrl_cls::kLights; ++number) {
        const LightSRC_cls& light = mLinks.lights.GetLight(number);
        if (!light.mVisible.mValue) continue;
        const bool placed = light.mType.mValue == LightSRC_cls::kFromPosition;
        mDrawData.SetLightSourceInfo(
            shining++,
            {.mVector = light.GetVector(placed ? LightSRC_cls::kPosition : LightSRC_cls::kDirection, time),
             .mIsPositional = placed,
             .mAmbient = ToColour(light.GetVector(LightSRC_cls::kAmbient, time)),
             .mDiffuse = ToColour(light.GetVector(LightSRC_cls::kDiffuse, time)),
             .mSpecular = ToColour(light.GetVector(LightSRC_cls::kSpecular, time))},
            1.0, 1.0F);
    }
}

void ScenePass_cls::DrawData(const SceneView_cls& view, const ViewCamera_cls& camera, Projection projection) {
    if (!view.mState || view.mState->GetCount() == 0) return;
    DrawAttributes_cls attributes{};
    for (size_t i = 0; i < attributes.size(); ++i)
        attributes[i] = mLinks.data.GetActive().GetAttributes()[i].get();
    mDrawData.SetCameraPos(camera.mPose.mPosition);
    mDrawData.SetViewDirection(camera.mPose.GetUnitDirection(), projection == Projection::Orthographic);
    mDrawData.SetCoarseness(view.mCoarseness);
    mDrawData.GLDraw(static_cast<int>(view.mIndex), *view.mState, attributes);
}

std::array<float, 3> ScenePass_cls::GetBackground() const {
    const auto& colour = mLinks.shared.mBackground.mValue;
    return {colour[0], colour[1], colour[2]};
}

void ScenePass_cls::DrawGuides(const SceneView_cls& view, const ViewCamera_cls& camera) const {
    SceneGuides_cls guides(camera.mPose, GetBackground());
    if (view.mPanel.mShowGrid.mValue)
        guides.AddGrid(view.mPanel.mGridType.mValue, view.mPanel.mGridShowTag.mValue);
    if (view.mPanel.mShowItems.mValue) guides.AddBox(mLinks.periodic, view.mState);
    guides.Draw(view.mPanel.mGridAntialias.mValue, false);
    // On the faces of a cube letters would be bent.
    if (view.mPanel.mGeometry.mValue <= PanelSettings_cls::kOrthographic)
        guides.DrawTags(OverlayText_cls(view.mHeight, GetBackground()));
}

void ScenePass_cls::DrawAids(const SceneView_cls& view, const ViewCamera_cls& camera) const {
    if (!view.mAids || !view.mPanel.mShowItems.mValue) return;
    SceneGuides_cls guides(camera.mPose, GetBackground());
    guides.AddAnchor();
    guides.AddLights(mLinks.lights, view.mTime);
    if (view.mPanel.mShowOtherCam.mValue) {
        for (const ViewCamera_cls& other : view.mOtherCameras) guides.AddCamera(other);
    }
    guides.Draw(view.mPanel.mGridAntialias.mValue, view.mPanel.mDrawItemByXOR.mValue);
    guides.DrawTags(OverlayText_cls(view.mHeight, GetBackground()));
}

void ScenePass_cls::DrawOverlay(const SceneView_cls& view) const {
    if (!view.mPanel.mShowMessage.mValue) return;
    const OverlayText_cls text(view.mHeight, GetBackground());
    if (view.mState) text.DrawTime(view.mShownTime.value_or(view.mState->GetTime()));
    if (view.mAids) text.DrawMessage(mMessage);
    DrawLegend(view, text);
}

void ScenePass_cls::DrawLegend(const SceneView_cls& view, const OverlayText_cls& text) const {
    const unsigned int which = mLinks.shared.mLegend.mValue;
    if (which == PanelShared_cls::kNoLegend || which > PDataSequence_cls::kAttributes) return;
    const int attribute = static_cast<int>(which) - 1;
    const wxString& unit = mLinks.shared.mLegendUnit.GetValueText();
    const LegendBar_cls bar(view.mWidth, view.mHeight);
    bar.Draw(ColorLegend_cls::Of(mLinks.data.GetActive().GetAttribute(attribute).GetMainCurve(),
                                 unit == PanelShared_cls::kNoUnit ? wxString() : unit, LegendBar_cls::kSteps,
                                 bar.GetMaxTicks()),
             text);
}
