#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <span>
#include <vector>

#include "render/clsDisplayedState.h"
#include "render/clsDrawOrder.h"
#include "render/clsGLDrawBillboard.h"
#include "render/clsPositionAndDirection.h"
#include "render/clsSequentialDraw.h"
#include "render/clsShadowVolume.h"

class DrawOption_cls;
class PanelShared_cls;
class ShadowSettings_cls;

/// One light as the particles see it. Lengths in the data's own units, colours 0 to 1.
struct DrawLight_cls {
    Vector3 mVector{0.0, 0.0, 1.0};  ///< where the light comes from: a direction, or a place
    bool mIsPositional = false;
    std::array<float, 3> mAmbient{};
    std::array<float, 3> mDiffuse{1.0F, 1.0F, 1.0F};
    std::array<float, 3> mSpecular{1.0F, 1.0F, 1.0F};
};

/// Draws the particles of one instant into the current context's frame buffer: as points, billboards or
/// spheres, in draw order. Before the call the view has loaded viewport, projection and model-view matrix,
/// and told camera and lights; OpenGL's state is the same afterwards.
/// One object draws for the whole program. What it keeps in OpenGL belongs to the group of contexts that was
/// current then (GLContext_cls::GetCurrentGroup()).
/// Threads: the GUI thread, but for the abort flag and the percentage. Units: the data's own lengths, pixels.
/// Failure: without shaders or textures it draws with what there is, after one message. Particles whose
/// position is not finite are left out, and so are billboards and spheres without a positive radius.
class GLDrawData_cls {
  public:
    static constexpr int kLights = 8;

    /// Set by any thread to stop a long draw, which then leaves a partial picture; cleared by the draw.
    static std::atomic<bool> msAbort;
    /// Progress of the current draw, 0 to 100.
    static std::atomic<int> msPercentage;
    /// Called by the draw, each 30 ms or so: shows the percentage and decides whether to go on. May be empty.
    /// Draws may use any frame buffer: it leaves context, frame buffer and viewport as it found them.
    static std::function<void()> msStatusObserver;

    /// All three outlive the object.
    GLDrawData_cls(const DrawOption_cls& option, const ShadowSettings_cls& shadow,
                   const PanelShared_cls& shared);
    ~GLDrawData_cls();
    GLDrawData_cls(const GLDrawData_cls&) = delete;
    GLDrawData_cls& operator=(const GLDrawData_cls&) = delete;

    // Told by the view before it draws

    void SetCameraPos(const Vector3& position) { mView.mCamera = position; }
    /// The unit vector that the camera looks along, and whether the projection is orthographic.
    void SetViewDirection(const Vector3& direction, bool isOrthographic);
    /// Lights are numbered from 0 without gaps; places are multiplied by the first scale, colours by the
    /// second.
    void SetLightSourceInfo(int index, const DrawLight_cls& light, double lengthScale, float colourScale);
    void ClearLights() { mLightNumber = 0; }
    /// Of the particles that the options leave, only each so-manieth is drawn; from 1, which is all.
    void SetCoarseness(int coarseness) { mCoarseness = coarseness; }

    /// Draws a state as the options say, alike in all panels: the panel's number changes nothing.
    void GLDraw(int viewIndex, const SnapData_cls& state, const DrawAttributes_cls& attributes);

  private:
    using Order = std::span<const ArrayAndIndex_cls>;

    /// What all routines of one draw share.
    struct Frame {
        const SnapData_cls& state;
        const DrawAttributes_cls& attributes;
        const DrawView_cls& view;
        Order order;
    };
    /// How far apart the drawn particles are in the data.
    int GetStep(int coarseness) const;
    /// What size and opacity of the drawn particles make up for.
    int GetLookStep() const;
    void GLDrawAttribute(const Frame& frame);
    void GLDrawPointArrayElement(const Frame& frame);
    void GLDrawPointAll(const Frame& frame);
    void GLDrawBillboardAll(const Frame& frame);
    void GLDrawSphereAll(const Frame& frame);
    void GLDrawSequential(const Frame& frame);
    void DrawPoints(const Frame& frame, const SpriteRule_cls& rule);
    /// The lights; those of the mask are in shadow.
    void LoadLights(const DrawView_cls& view, uint8_t mask) const;
    SequentialDraw_cls::Shadows FindShadows(const Frame& frame);
    bool AreAllDirected() const;
    SphereBatch_cls::Look SphereLookOf(const GLAttribute_cls& attribute) const;

    const DrawOption_cls& mOption;
    const PanelShared_cls& mShared;
    DrawOrder_cls::View mView;
    DrawOrder_cls mOrder;
    std::array<DrawLight_cls, kLights> mLights{};
    int mLightNumber = 0;
    int mCoarseness = 1;
    SpriteBatch_cls mSprites;
    SphereBatch_cls mSpheres;
    GLDrawBillboard_cls mBillboard;
    SequentialDraw_cls::Lists mLists;
    ShadowVolume_cls mShadowVolume;
    std::vector<float> mShadowRadii;
};
