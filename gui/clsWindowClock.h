#pragma once

#include <functional>
#include <utility>

#include "seam/clsClock.h"

/// The clock of a program with a window: while the GUI thread sleeps in a wait, the window is painted and its
/// posted events are taken. What may only happen outside of waits asks IsWaiting().
/// Owned by the main window. Threads: any; only the GUI thread's sleeps pump.
class WindowClock_cls : public Clock_cls {
  public:
    WindowClock_cls();
    ~WindowClock_cls() override;
    WindowClock_cls(const WindowClock_cls&) = delete;
    WindowClock_cls& operator=(const WindowClock_cls&) = delete;

    void Sleep(int milliseconds) override;
    void Breathe() override;
    bool IsWaiting() const { return mDepth > 0; }

    /// In its scope waits and long work of the GUI thread take no events: they do this now and then instead.
    class Breath {
      public:
        Breath(WindowClock_cls& clock, std::function<void()> work) : mClock(clock) {
            mClock.mBreath = std::move(work);
        }
        ~Breath() { mClock.mBreath = nullptr; }
        Breath(const Breath&) = delete;
        Breath& operator=(const Breath&) = delete;

      private:
        WindowClock_cls& mClock;
    };

  private:
    int mDepth = 0;
    std::function<void()> mBreath;
    long long mBreathedAt = 0;
};
