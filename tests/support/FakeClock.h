#pragma once

#include "seam/clsClock.h"

/// Stands in for the clock of one test: time passes only by sleeping, so nothing really waits.
class FakeClock_cls : public Clock_cls {
  public:
    FakeClock_cls() : mBefore(GpCClock.exchange(this)) {}
    ~FakeClock_cls() override { GpCClock = mBefore; }
    FakeClock_cls(const FakeClock_cls&) = delete;
    FakeClock_cls& operator=(const FakeClock_cls&) = delete;

    long long Now() override { return mNow; }
    void Sleep(int milliseconds) override {
        mNow += milliseconds;
        ++mSleeps;
    }

    long long mNow = 1000;
    int mSleeps = 0;

  private:
    Clock_cls* mBefore;
};
