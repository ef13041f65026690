#include "gui/clsViewGL.h"

#include <cstdio>

#include "gui/clsCanvasContext.h"
#include "gui/clsFrameContext.h"
#include "render/clsOpenGL.h"
#include "seam/clsUserMessage.h"

ViewGL_cls::ViewGL_cls(FrameContext_cls& context, DrawWatch_cls& watch)
    : mWatch(watch),
      mPass({.shared = context.panelShared,
             .option = context.drawOption,
             .shadow = context.shadowSettings,
             .lights = context.lightSRCCtrl,
             .periodic = context.periodicBoundary,
             .data = context.seqCtrl}) {}

ViewGL_cls::~ViewGL_cls() = default;

wxGLAttributes ViewGL_cls::GetAttributes() {
    wxGLAttributes attributes;
    attributes.PlatformDefaults().RGBA().DoubleBuffer().Depth(24).Stencil(8).EndList();
    return attributes;
}

bool ViewGL_cls::IsDisplaySupported() {
    return wxGLCanvas::IsDisplaySupported(GetAttributes());
}

bool ViewGL_cls::Check() {
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    const char* renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (version) mWords = wxString::FromUTF8(version) + (renderer ? ", " + wxString::FromUTF8(renderer) : "");
    int major = 0;
    int minor = 0;
    if (!version || std::sscanf(version, "%d.%d", &major, &minor) != 2) return false;
    if (major * 10 + minor >= 30) return true;
    const wxString extensions = wxString::FromUTF8(reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS)));
    return major * 10 + minor >= 21 && extensions.Contains("GL_ARB_framebuffer_object");
}

bool ViewGL_cls::MakeCurrent(wxGLCanvas& canvas) {
    if (mFailed) return false;
    const bool first = !mContext;
    if (first) mContext = std::make_unique<CanvasContext_cls>(canvas);
    if (mContext->IsOK() && mContext->MakeCurrentOn(canvas) && (!first || Check())) return true;
    mFailed = true;
    // Not from inside of the drawing that has found it.
    canvas.CallAfter([] {
        UserMessage_cls::Tell("Warning",
                              "This display has no OpenGL 2.1 with frame buffers: the views stay empty.");
    });
    return false;
}
