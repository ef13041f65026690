#pragma once

#include <atomic>

/// How far the running reader is, 0 to 100, for the status bar. Written by the reader's threads.
extern std::atomic<int> GThreadReaderPercentage;

/// Set while what is being read is not wanted any more: the reader ends with what it has. Whoever sets it
/// waits for the reader, clears the snapshot, and takes it back.
extern std::atomic<bool> GbThreadReaderAbandoned;

/// Adds up the particles that the threads of one read have stored; sets the percentage and asks for a status
/// refresh each time another step, or the whole, is complete.
/// Threads: Add() from any, several at a time. Units: particles.
class BodyProgress_cls {
  public:
    BodyProgress_cls(int count, int step) : mCount(count), mStep(step < 1 ? 1 : step) {}

    void Add(int particles);

  private:
    const long long mCount;
    const long long mStep;
    std::atomic<long long> mDone{0};
};
