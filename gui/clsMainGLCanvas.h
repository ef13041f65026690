#pragma once

#include <wx/glcanvas.h>

#include <functional>
#include <memory>
#include <optional>

#include "gui/clsPanelCamera.h"
#include "gui/clsViewNavigator.h"
#include "output/clsPicture.h"

class OffscreenBuffer_cls;
class ViewGL_cls;

/// The drawing surface of one view panel. The scene goes into an off-screen buffer of the panel's size, and
/// that to the screen; while nothing may be prepared the last picture is shown again, so that a panel neither
/// flickers nor meets data that are being replaced.
/// Owned by its panel window. Threads: GUI thread. Units: the buffer's pixels are the screen's.
class MainGLCanvas_cls : public wxGLCanvas {
  public:
    MainGLCanvas_cls(wxWindow* parent, unsigned int index, FrameContext_cls& context,
                     ShownInstant_cls& instant, PanelCamera_cls& camera, ViewGL_cls& gl);
    ~MainGLCanvas_cls() override;

    /// The next painting draws the scene anew; a mere exposure shows the picture that is there.
    void Redraw();
    /// True when the scene has been drawn since the last Redraw(), or cannot be seen.
    bool IsDrawn() const { return !mStale || !IsShownOnScreen(); }
    /// Gives up what lives in the OpenGL context, which is about to end.
    void DropPicture();
    /// The picture that is shown; none before the first.
    std::optional<Picture_cls> ReadPicture();
    wxSize PixelSize() const;
    /// What the picture had to say, whole lines.
    const wxString& GetMessage() const { return mMessage; }
    /// Called when the message has changed.
    std::function<void()> mMessageObserver;

  private:
    void OnPaint();
    void DrawScene(const SnapData_cls* state);
    const unsigned int mIndex;
    FrameContext_cls& mContext;
    ShownInstant_cls& mInstant;
    PanelCamera_cls& mCamera;
    ViewGL_cls& mGL;
    ViewNavigator_cls mNavigator;
    std::unique_ptr<OffscreenBuffer_cls> mPicture;
    bool mStale = true;
    bool mPainting = false;
    wxString mMessage;
};
