#pragma once

/// The OpenGL context that drawing goes to: a canvas of the window, or one without any display.
/// Threads: a context belongs to the thread that made it current. Drawing happens on the GUI thread only.
class GLContext_cls {
  public:
    virtual ~GLContext_cls() = default;
    /// False when the context is lost.
    virtual bool MakeCurrent() = 0;
};
