#pragma once

#include <wx/panel.h>

#include "gui/clsPanelCamera.h"

class MainGLCanvas_cls;
class ViewGL_cls;
class ViewToolbar_cls;

/// One view with its toolbar. Owned by the top half. Threads: GUI thread.
class ViewPanel_cls : public wxPanel {
  public:
    ViewPanel_cls(wxWindow* parent, unsigned int index, FrameContext_cls& context, ShownInstant_cls& instant,
                  MovedCamera_cls& moved, ViewGL_cls& gl);

    MainGLCanvas_cls& GetCanvas() { return *mCanvas; }
    PanelCamera_cls& GetCamera() { return mCamera; }
    ViewToolbar_cls& GetToolbar() { return *mToolbar; }

  private:
    PanelCamera_cls mCamera;
    ViewToolbar_cls* mToolbar;
    MainGLCanvas_cls* mCanvas;
};
