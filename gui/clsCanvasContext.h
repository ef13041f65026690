#pragma once

#include <wx/glcanvas.h>

#include "render/clsGLContext.h"

/// The OpenGL context of the window's canvases; made current on one of them at a time. Threads: GUI thread.
class CanvasContext_cls : public GLContext_cls {
  public:
    /// The canvas must be on the screen.
    explicit CanvasContext_cls(wxGLCanvas& canvas) : mCanvas(&canvas), mContext(&canvas) {}

    bool IsOK() { return mContext.IsOK(); }
    bool MakeCurrentOn(wxGLCanvas& canvas) {
        mCanvas = &canvas;
        return MakeCurrent();
    }

  protected:
    bool Activate() override { return mContext.SetCurrent(*mCanvas); }

  private:
    wxGLCanvas* mCanvas;
    wxGLContext mContext;
};
