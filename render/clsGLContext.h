#pragma once

/// The OpenGL context that drawing goes to: a canvas of the window, or one without any display.
/// Contexts that share their objects form a group. What drawing keeps in OpenGL (programs, textures, buffers)
/// is kept for each group, and ends with the last context of the group: whoever keeps it frees nothing.
/// Threads: a context belongs to the thread that made it current. Drawing happens on the GUI thread only.
class GLContext_cls {
  public:
    /// A context that shares its objects with another one is of its group.
    explicit GLContext_cls(const GLContext_cls* sharing = nullptr)
        : mGroup(sharing ? sharing->mGroup : ++msGroups) {}
    GLContext_cls(const GLContext_cls&) = delete;
    GLContext_cls& operator=(const GLContext_cls&) = delete;
    virtual ~GLContext_cls() = default;

    /// False when the context is lost.
    bool MakeCurrent() {
        if (!Activate()) return false;
        msCurrentGroup = mGroup;
        return true;
    }
    int GetGroup() const { return mGroup; }
    /// The group of the context that was made current last on this thread.
    static int GetCurrentGroup() { return msCurrentGroup; }

  protected:
    virtual bool Activate() = 0;

  private:
    inline static int msGroups = 0;
    inline static thread_local int msCurrentGroup = 0;
    const int mGroup;
};
