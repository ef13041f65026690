#include "render/clsOffscreenContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <string_view>
#include <vector>

namespace {

/// Words that no display of this machine could be opened with, for the message.
constexpr const char* kNoContext =
    "EGL gives no OpenGL context on this machine (is a Mesa or vendor driver installed?)";

bool HasClientExtension(std::string_view name) {
    const char* all = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    return all && std::string_view(all).find(name) != std::string_view::npos;
}

EGLDisplay PlatformDisplay(EGLenum platform, void* native) {
    const auto get =
        reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    return get ? get(platform, native, nullptr) : EGL_NO_DISPLAY;
}

/// Displays to try, best first.
std::vector<EGLDisplay> CandidateDisplays() {
    std::vector<EGLDisplay> displays;
    const auto query = reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
    const bool surfaceless = HasClientExtension("EGL_MESA_platform_surfaceless");
    if (surfaceless) displays.push_back(PlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, nullptr));
    if (query && HasClientExtension("EGL_EXT_platform_device")) {
        EGLDeviceEXT devices[16];
        EGLint count = 0;
        if (query(16, devices, &count)) {
            for (EGLint i = 0; i < count; ++i) {
                displays.push_back(PlatformDisplay(EGL_PLATFORM_DEVICE_EXT, devices[i]));
            }
        }
    }
    displays.push_back(eglGetDisplay(EGL_DEFAULT_DISPLAY));
    return displays;
}

}  // namespace

std::unique_ptr<OffscreenContext_cls> OffscreenContext_cls::Create(wxString* why) {
    for (void* display : CandidateDisplays()) {
        if (display == EGL_NO_DISPLAY) continue;
        if (auto context = CreateOn(display)) return context;
    }
    *why = kNoContext;
    return nullptr;
}

std::unique_ptr<OffscreenContext_cls> OffscreenContext_cls::CreateOn(void* display) {
    EGLint major = 0;
    EGLint minor = 0;
    if (!eglInitialize(display, &major, &minor)) return nullptr;

    const EGLint attributes[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                                 EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    const bool usable =
        eglBindAPI(EGL_OPENGL_API) && eglChooseConfig(display, attributes, &config, 1, &count) && count > 0;
    // No version asked for: this gives the compatibility profile.
    void* context = usable ? eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr) : EGL_NO_CONTEXT;
    if (context == EGL_NO_CONTEXT) return nullptr;
    std::unique_ptr<OffscreenContext_cls> made(new OffscreenContext_cls(display, context));
    if (!made->MakeCurrent()) made.reset();
    return made;
}

bool OffscreenContext_cls::Activate() {
    return eglMakeCurrent(mDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, mContext) == EGL_TRUE;
}

OffscreenContext_cls::~OffscreenContext_cls() {
    eglMakeCurrent(mDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    // The display belongs to the process, other contexts may be on it: it is not terminated.
    eglDestroyContext(mDisplay, mContext);
}
