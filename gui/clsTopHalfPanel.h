#pragma once

#include <wx/panel.h>

#include <array>

#include "gui/clsPanelCamera.h"
#include "gui/clsSettingsView.h"
#include "gui/clsViewGL.h"

class DrawWatch_cls;
class MainGLCanvas_cls;
class ViewPanel_cls;

/// The view panels in one of the five layouts. All four exist from the start and keep their cameras while
/// hidden. The one that was used last is the active one, on which the keyboard acts.
/// Owned by the main window. Threads: GUI thread.
class TopHalfPanel_cls : public wxPanel, public SettingsView_cls {
  public:
    TopHalfPanel_cls(wxWindow* parent, FrameContext_cls& context, ShownInstant_cls& instant,
                     DrawWatch_cls& watch);
    ~TopHalfPanel_cls() override;

    /// One of PanelShared_cls::Layout, as a step of the undo list.
    void SetLayoutCommand(unsigned int layout);
    unsigned int GetLayout() const;
    /// All shown panels draw the scene anew.
    void Redraw();
    /// True when every panel that can be seen has drawn what it was asked to, with all particles.
    bool IsDrawn() const;
    /// The same, but for coarse pictures, which are enough to play on.
    bool IsShowing() const;
    /// Nobody waits for drawings any more: the pictures stay as they are.
    void StopDrawing();

    size_t GetActive() const { return mActive; }
    /// Which OpenGL draws the views; empty before the first picture.
    const wxString& GetOpenGL() const { return mGL.GetWords(); }
    PanelCamera_cls& GetActiveCamera();
    MainGLCanvas_cls& GetCanvas(size_t panel);
    void ShowSettings(std::uint64_t updateBits) override;

  private:
    void Arrange();
    void Activate(size_t panel);

    FrameContext_cls& mContext;
    ViewGL_cls mGL;
    MovedCamera_cls mMoved;
    std::array<ViewPanel_cls*, 4> mPanels{};
    size_t mActive = 0;
    unsigned int mArranged = 0;
};
