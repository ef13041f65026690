#pragma once

#include <cstddef>

/// How far one draw is: the percentage, the observer each 30 ms or so, and whether the user wants it
/// stopped. Made at the start of a draw. Threads: GUI thread.
class DrawProgress_cls {
  public:
    explicit DrawProgress_cls(size_t count);

    /// Called between pieces of work. False when the draw is to stop; the wish is then met and forgotten.
    bool Step(size_t done);

  private:
    const size_t mCount;
    long long mLastRefresh;
};
