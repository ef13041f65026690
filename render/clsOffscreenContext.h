#pragma once

#include <wx/string.h>

#include <memory>

#include "render/clsGLContext.h"

/// A compatibility-profile OpenGL context made by EGL without a display server: Mesa's surfaceless platform,
/// else a GPU device, else the default display. It has no surface of its own; draw into an
/// OffscreenBuffer_cls. Failure: Create() gives null and says why in words.
class OffscreenContext_cls : public GLContext_cls {
  public:
    static std::unique_ptr<OffscreenContext_cls> Create(wxString* why);
    ~OffscreenContext_cls() override;
    OffscreenContext_cls(const OffscreenContext_cls&) = delete;
    OffscreenContext_cls& operator=(const OffscreenContext_cls&) = delete;

    bool Activate() override;

  private:
    // EGL's handles are plain pointers; its header stays out of this one.
    OffscreenContext_cls(void* display, void* context) : mDisplay(display), mContext(context) {}
    static std::unique_ptr<OffscreenContext_cls> CreateOn(void* display);

    void* mDisplay;
    void* mContext;
};
