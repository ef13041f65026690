#pragma once

#include <atomic>
#include <functional>

/// The clock and the sleep that pacing and polling use: the system's. The window and tests put one of their
/// own in place.
/// Threads: any. Units: milliseconds.
class Clock_cls {
  public:
    virtual ~Clock_cls() = default;
    /// Milliseconds since some fixed instant, never going back.
    virtual long long Now();
    virtual void Sleep(int milliseconds);
    /// Called by long work between its blocks. The front end lives meanwhile.
    virtual void Breathe() {}

    /// The clock in place: the test's or the front end's, else the system's.
    static Clock_cls& Current();
};

/// A clock put in place of the system's, owned by whoever set it; null means the system's.
extern std::atomic<Clock_cls*> GpCClock;

/// Polls until the condition holds, sleeping `periodMs` between tests. The condition is tested before the
/// first sleep, so finished work costs no sleep. `eachRound` is called after every sleep with the round's
/// number from 1. This is the only waiting loop of the program.
void PollUntil(const std::function<bool()>& condition, int periodMs,
               const std::function<void(int round)>& eachRound = {});
/// The same for a completion flag, which is stored with release order by the worker. Before the first sleep
/// it gives the worker a moment: one that is about to end costs no sleep either.
void PollUntil(const std::atomic<bool>& flag, int periodMs);
