#pragma once

#include <wx/glcanvas.h>
#include <wx/timer.h>

#include <functional>
#include <memory>
#include <optional>

#include "gui/clsPanelCamera.h"
#include "gui/clsViewNavigator.h"
#include "output/clsPicture.h"

class OffscreenBuffer_cls;
class ViewGL_cls;

/// The drawing surface of one view panel. The scene goes into an off-screen buffer of the panel's size, and
/// when it is whole to the screen; until then the last picture is shown, so that a panel neither flickers nor
/// meets data that are being replaced. While the user's hand is at work, what takes long to draw is drawn
/// with a part of its particles only, and with all of them as soon as the hand rests.
/// Owned by its panel window. Threads: GUI thread. Units: the buffer's pixels are the screen's.
class MainGLCanvas_cls : public wxGLCanvas {
  public:
    MainGLCanvas_cls(wxWindow* parent, unsigned int index, FrameContext_cls& context,
                     ShownInstant_cls& instant, PanelCamera_cls& camera, ViewGL_cls& gl);
    ~MainGLCanvas_cls() override;

    /// The scene is drawn anew as soon as the window has time; a mere exposure shows the picture that is
    /// there.
    void Redraw();
    /// True when the scene has been drawn with all particles since the last Redraw(), or nobody waits
    /// for it.
    bool IsDrawn() const { return IsShowing() && !(mWantsFine && IsShownOnScreen()); }
    /// The same, but for coarse pictures.
    bool IsShowing() const { return !(mStale || mUnpainted) || !IsShownOnScreen(); }
    /// The picture stays as it is until something changes.
    void StopDrawing();
    /// Gives up what lives in the OpenGL context, which is about to end.
    void DropPicture();
    /// The picture that is shown, with all particles; none before the first.
    std::optional<Picture_cls> ReadPicture();
    wxSize PixelSize() const;
    /// What the picture had to say, whole lines.
    const wxString& GetMessage() const { return mMessage; }
    ViewCamera_cls GetCamera() const { return mCamera.Get(); }
    /// Called when the message has changed.
    std::function<void()> mMessageObserver;
    /// The cameras of the other views that are shown.
    std::function<std::vector<ViewCamera_cls>()> mOtherCameras;

  private:
    void OnPaint();
    void DrawSoon();
    void DrawIfStale();
    void Draw(int coarseness, long long patienceMs);
    /// What had to wait is drawn now; with all particles, if the hand rests.
    void OnLater();
    /// False when there is nothing to draw into.
    bool DrawScene(int coarseness);
    int ChooseCoarseness() const;
    bool IsHandBusy() const;

    const unsigned int mIndex;
    FrameContext_cls& mContext;
    ShownInstant_cls& mInstant;
    PanelCamera_cls& mCamera;
    ViewGL_cls& mGL;
    ViewNavigator_cls mNavigator;
    std::unique_ptr<OffscreenBuffer_cls> mPicture;
    std::unique_ptr<OffscreenBuffer_cls> mNext;  ///< what is being drawn
    wxTimer mLater;
    bool mStale = true;
    bool mScheduled = false;
    bool mUnpainted = false;
    bool mWantsFine = false;
    bool mCoarse = false;   ///< the picture
    long long mFullMs = 0;  ///< what the scene takes with all particles
    wxString mMessage;
};
