#pragma once

#include <wx/string.h>

#include <memory>

#include "scene/clsScenePass.h"

class CanvasContext_cls;
class DrawWatch_cls;
class wxGLAttributes;
class wxGLCanvas;
struct FrameContext_cls;

/// The one OpenGL context of the window, used on all its canvases, and the scene pass that lives in it.
/// Owned by the top half. Threads: GUI thread. Failure: without OpenGL 2.1 and frame buffer objects the user
/// is told once, and the views stay dark; the program goes on.
class ViewGL_cls {
  public:
    ViewGL_cls(FrameContext_cls& context, DrawWatch_cls& watch);
    ~ViewGL_cls();
    ViewGL_cls(const ViewGL_cls&) = delete;
    ViewGL_cls& operator=(const ViewGL_cls&) = delete;

    /// The pixel format of all canvases.
    static wxGLAttributes GetAttributes();
    /// False where no canvas can be made at all.
    static bool IsDisplaySupported();
    /// Makes the context current on a canvas that is on the screen; made at the first call. False when there
    /// is none.
    bool MakeCurrent(wxGLCanvas& canvas);
    /// Version and renderer, once there is a context.
    const wxString& GetWords() const { return mWords; }
    ScenePass_cls& GetPass() { return mPass; }
    DrawWatch_cls& GetWatch() { return mWatch; }

  private:
    bool Check();

    DrawWatch_cls& mWatch;
    std::unique_ptr<CanvasContext_cls> mContext;
    ScenePass_cls mPass;
    wxString mWords;
    bool mFailed = false;
};
