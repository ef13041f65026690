#pragma once

#include <atomic>
#include <vector>

/// The particles 0 to count - 1, shared out among workers: each has count / workers of them, the last one
/// also the rest. A worker takes its share in blocks, and when that is done the blocks that others have
/// not come to, so that more workers than processors finish together.
/// Threads: made before the workers start, outlives them; Take() is called by all of them at once.
class WorkShares_cls {
  public:
    /// Shares that must be worked through in one go, each by one worker.
    static constexpr int kWhole = -1;

    WorkShares_cls(int count, int workers, int block);

    int GetWorkers() const { return static_cast<int>(mShares.size()); }
    /// The next block for a worker; false when all work is taken.
    bool Take(int worker, int* begin, int* end);

  private:
    struct Share {
        std::atomic<long long> next{0};  // wider than a count: late takers add to it beyond the end
        int end = 0;
        int block = 1;
    };
    std::vector<Share> mShares;
};
