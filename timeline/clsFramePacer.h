#pragma once

/// Holds playback to its rate. Waits on the program's clock, polling every few milliseconds.
/// Units: milliseconds. Threads: GUI thread only.
class FramePacer_cls {
  public:
    static constexpr int kPollMs = 3;
    static constexpr int kInterval = 30;

    /// A frame is shown now.
    void Restart();
    /// Until the next frame is due; 0 or less when it is.
    long long GetRemaining() const;
    /// Returns when the interval has passed since the last frame was shown, and counts the next as shown.
    void WaitForNext();

  private:
    long long mLastShown = 0;
};
