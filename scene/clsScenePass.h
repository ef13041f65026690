#pragma once

#include <wx/string.h>

#include <array>
#include <optional>
#include <span>

#include "render/clsGLDrawData.h"
#include "render/clsPanelSettings.h"
#include "scene/clsViewCamera.h"

class DrawOption_cls;
class OverlayText_cls;
class LightSRCCtrl_cls;
class PDataSeqCtrl_cls;
class PanelShared_cls;
class PeriodicBoundary_cls;
class ShadowSettings_cls;
class SnapData_cls;

/// One view of one instant. What it points at is borrowed for the call.
struct SceneView_cls {
    const PanelSettings_cls& mPanel;
    unsigned int mIndex = 0;               ///< number of the panel
    ViewCamera_cls mCamera;                ///< from ChooseCamera(), or a free one
    double mTime = 0.0;                    ///< normalised, for what is key-framed
    const SnapData_cls* mState = nullptr;  ///< null: no particles
    std::optional<double> mShownTime{};    ///< told in the overlay instead of the state's own
    int mWidth = 1;                        ///< of the target, pixels
    int mHeight = 1;
    /// Anchor mark, marks of lights, other cameras and messages: for a person at the window, not for saved
    /// pictures.
    bool mAids = false;
    int mCoarseness = 1;                              ///< see GLDrawData_cls
    std::span<const ViewCamera_cls> mOtherCameras{};  ///< of the other panels
};

/// Draws one view of the scene into whatever frame buffer and OpenGL context are current: a canvas of the
/// window or an off-screen buffer, with the same pixels for the same view and size. Leaves the frame buffer
/// bound and the viewport at the whole target.
/// Order: lights, projection and camera, clear, grid and box, particles, aids, time and messages.
/// One object serves all panels of a window whose contexts share their objects. Owned by whoever owns the
/// contexts. Threads: the thread of the context (GUI). Failure: what the driver cannot do is left out and
/// told in the message.
class ScenePass_cls {
  public:
    /// What all views share; outlives the pass.
    struct Links {
        const PanelShared_cls& shared;
        const DrawOption_cls& option;
        const ShadowSettings_cls& shadow;
        const LightSRCCtrl_cls& lights;
        const PeriodicBoundary_cls& periodic;
        PDataSeqCtrl_cls& data;
    };

    explicit ScenePass_cls(const Links& links);
    ScenePass_cls(const ScenePass_cls&) = delete;
    ScenePass_cls& operator=(const ScenePass_cls&) = delete;

    void Draw(const SceneView_cls& view);
    /// What the last view had to say to the user: whole lines, empty for nothing.
    const wxString& GetMessage() const { return mMessage; }

  private:
    enum class Projection { Perspective, Orthographic };
    void DrawScene(const SceneView_cls& view, const ViewCamera_cls& camera, Projection projection, int width,
                   int height);
    void DrawRound(const SceneView_cls& view, const ViewCamera_cls& camera);
    void ClearBuffer() const;
    void UpdateLights(double time);
    void DrawData(const SceneView_cls& view, const ViewCamera_cls& camera, Projection projection);
    void DrawGuides(const SceneView_cls& view, const ViewCamera_cls& camera) const;
    void DrawAids(const SceneView_cls& view, const ViewCamera_cls& camera) const;
    void DrawOverlay(const SceneView_cls& view) const;
    void DrawLegend(const SceneView_cls& view, const OverlayText_cls& text) const;
    std::array<float, 3> GetBackground() const;

    Links mLinks;
    GLDrawData_cls mDrawData;
    wxString mMessage;
};
