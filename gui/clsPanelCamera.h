#pragma once

#include <optional>

#include "gui/clsCameraMotion.h"
#include "gui/clsShownInstant.h"
#include "scene/clsViewCamera.h"

/// The camera path as it is seen and moved in the window: a move away from an animated path is shown, at the
/// frame at which it was made, until it is keyed. One for all panels, owned with them.
struct MovedCamera_cls {
    std::optional<PositionAndDirection_cls> mPose;
    double mTime = 0.0;
};

/// The camera of one view panel: the camera path's, or one of its own (PanelSettings_cls::mDisplayMode), and
/// how the mouse and the buttons change it. Each gesture is one step of the undo list.
/// A move of a constant camera path is written to it; a move of an animated one waits for Key().
/// Owned by its panel. Threads: GUI thread.
class PanelCamera_cls {
  public:
    /// Where a panel with a camera of its own looks from at first.
    enum class Side { Front, Side, Top };

    PanelCamera_cls(FrameContext_cls& context, ShownInstant_cls& instant, PanelSettings_cls& panel,
                    MovedCamera_cls& moved, Side side)
        : mContext(context), mInstant(instant), mPanel(panel), mMoved(moved), mSide(side) {}
    PanelCamera_cls(const PanelCamera_cls&) = delete;
    PanelCamera_cls& operator=(const PanelCamera_cls&) = delete;

    ViewCamera_cls Get() const;
    /// What motions need to know, for a view of this size in pixels.
    CameraMotion::View GetView(int width, int height) const;

    // A gesture: every Move() goes from the pose at Begin()
    void Begin(const wxString& name);
    void Move(const PositionAndDirection_cls& pose);
    void End();
    /// Takes the gesture back.
    void Cancel();
    bool IsMoving() const { return mStart.has_value(); }
    const PositionAndDirection_cls& GetStart() const { return *mStart; }

    /// One step: the whole gesture at once.
    void Set(const wxString& name, const PositionAndDirection_cls& pose);
    /// Shows the data as they are now whole.
    void FitToData();
    void LookFrom(Side side);
    void SetAngle(double angle);
    /// Puts the camera as this panel shows it into the camera path at the current time; the path is animated
    /// from then on.
    void Key();

  private:
    bool FollowsPath() const;
    bool IsPathAnimated() const;
    PositionAndDirection_cls GetFit(const DataBounds_cls& bounds, Side side) const;
    void Store(const wxString& name, const PositionAndDirection_cls& pose);
    void WritePath(const wxString& name, const ViewCamera_cls& camera);

    FrameContext_cls& mContext;
    ShownInstant_cls& mInstant;
    PanelSettings_cls& mPanel;
    MovedCamera_cls& mMoved;
    Side mSide;
    std::optional<PositionAndDirection_cls> mFree;
    std::optional<PositionAndDirection_cls> mStart;
    double mStartAngle = 0.0;
    wxString mName;
};
