#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "gui/clsFrameContext.h"
#include "render/clsFitToData.h"

/// The instant that all view panels show: whether its data are there, and its particles, evaluated once for
/// all panels. Nothing here waits for files. Owned by the main window. Threads: GUI thread.
class ShownInstant_cls {
  public:
    /// `firstSeen` is called with the first particles of other data, and may change how they look.
    ShownInstant_cls(FrameContext_cls& context, std::function<void(const SnapData_cls&)> firstSeen)
        : mContext(context), mFirstSeen(std::move(firstSeen)) {}

    /// False while data are awaited or a project is read: nothing may be prepared, panels show the picture
    /// they have.
    bool MayPrepare() const { return MayPrepare(mContext); }
    static bool MayPrepare(const FrameContext_cls& context);
    /// The data of the timeline's current instant can be shown. True without data.
    bool IsReady();
    /// The particles of the current instant, or until they are ready the last ones; null for none.
    const SnapData_cls* Get();
    /// Settings that colour or thin the particles have changed: the next Get() evaluates anew. Camera moves
    /// do not need it; inside a CameraMove it is ignored.
    void Invalidate();
    /// Other data, or none: the next particles are framed anew.
    void Forget();

    /// Where the first particles shown of these data lie; nothing before.
    const std::optional<DataBounds_cls>& GetFirstBounds() const { return mFirstBounds; }

    /// The changes made in its scope move cameras only.
    class CameraMove {
      public:
        explicit CameraMove(ShownInstant_cls& instant) : mInstant(instant) { ++mInstant.mCameraMoves; }
        ~CameraMove() { --mInstant.mCameraMoves; }
        CameraMove(const CameraMove&) = delete;
        CameraMove& operator=(const CameraMove&) = delete;

      private:
        ShownInstant_cls& mInstant;
    };

  private:
    FrameContext_cls& mContext;
    const std::function<void(const SnapData_cls&)> mFirstSeen;
    const SnapData_cls* mState = nullptr;
    bool mFresh = false;
    double mPosition = 0.0;
    double mTime = 0.0;
    int mCameraMoves = 0;
    std::optional<DataBounds_cls> mFirstBounds;
};
