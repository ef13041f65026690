#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <utility>

class WindowClock_cls;

/// Keeps the window alive while one of its views is drawn: shows how far the drawing is, and interrupts it
/// when the user wants something, so that few keep the user waiting. No event is taken meanwhile: what is
/// drawn cannot change.
/// One drawing at a time. Owned by the main window. Threads: GUI thread. Times in milliseconds.
class DrawWatch_cls {
  public:
    /// A drawing that is shorter is not interrupted, and a coarse one never is.
    static constexpr long long kPatienceMs = 100;
    static constexpr long long kEndless = std::numeric_limits<long long>::max();

    /// `showProgress` paints at once.
    DrawWatch_cls(WindowClock_cls& clock, std::function<void()> showProgress)
        : mClock(clock), mShowProgress(std::move(showProgress)) {}

    /// Runs `draw`, of each so-manieth particle only. False when it was interrupted: the picture is not
    /// whole.
    bool Run(int coarseness, const std::function<void()>& draw, long long patienceMs = kPatienceMs);
    /// A message that a drawing brings up lets events in: nothing else is drawn then.
    bool IsRunning() const { return mRunning; }
    /// Asked by a drawing between its parts.
    bool IsInterrupted() const { return mInterrupted; }

    /// A drawing was interrupted, and the user's hand has not rested since.
    bool IsHurried() const { return mHurried; }
    void Rest() { mHurried = false; }

    /// How far a drawing is that lets the user wait; also after an interruption, until one is whole.
    std::optional<int> GetPercentage() const { return mPercentage; }
    /// Nobody waits any more.
    void Stop();
    /// Of the last picture.
    int GetCoarseness() const { return mCoarseness; }
    /// How long the last drawing took, or by its progress would have taken, with all particles.
    long long GetFullMs() const { return mFullMs; }

  private:
    void Look();
    void Interrupt();

    WindowClock_cls& mClock;
    const std::function<void()> mShowProgress;
    bool mRunning = false;
    bool mInterrupted = false;
    bool mHurried = false;
    int mCoarseness = 1;  ///< of the last picture
    int mNextCoarseness = 1;
    long long mBegin = 0;
    long long mPatienceMs = kPatienceMs;
    long long mFullMs = 0;
    std::optional<int> mPercentage;
};
