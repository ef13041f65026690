#pragma once

#include <cstddef>
#include <functional>

/// Work cut into numbered pieces: made by several threads at a time in any order, and taken over by the
/// caller in the order of their numbers, so that the result does not depend on the number of threads.
/// Threads: `make` is called by any thread, for one piece of a slot at a time; `take` by the caller's. Run()
/// returns when all threads have ended. Failure: what a piece throws is thrown by Run().
class PieceWork_cls {
  public:
    /// Results are kept in slots until they are taken: so few that they stay in the processor's cache.
    static constexpr size_t kSlots = 16;
    using Function = std::function<void(size_t piece, size_t slot)>;

    static void Run(size_t pieces, const Function& make, const Function& take);
};
