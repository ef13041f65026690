#pragma once

#include <cstddef>
#include <functional>

/// Work on large arrays, part of it on a thread of its own.
/// Threads: any; the calls return when all is done. What the other thread does must not throw.
/// Failure: a thread that cannot be created ends the program with a message.
class TwoThreads_cls {
  public:
    /// Does both at the same time; what `here` throws comes out when `beside` is done.
    static void Run(const std::function<void()>& beside, const std::function<void()>& here);
    /// Does the work on 0 to count - 1: in one call, or for large counts in two at the same time.
    static void OverRange(size_t count, const std::function<void(size_t begin, size_t end)>& work);
};
