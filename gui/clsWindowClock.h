#pragma once

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

    long long Now() override;
    void Sleep(int milliseconds) override;
    bool IsWaiting() const { return mDepth > 0; }

    /// No pumping in its scope: a paint handler must not lead to another.
    class Quiet {
      public:
        explicit Quiet(WindowClock_cls& clock) : mClock(clock) { ++mClock.mQuiet; }
        ~Quiet() { --mClock.mQuiet; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

      private:
        WindowClock_cls& mClock;
    };

  private:
    int mDepth = 0;
    int mQuiet = 0;
};
