#include "interp/clsThreadInterpolator.h"

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "data/clsDataLoader.h"
#include "interp/clsThreadInterpolatorBlock.h"
#include "seam/clsEventSink.h"
#include "seam/clsUserMessage.h"

std::atomic<ThreadInterpolator_cls*> GpCThreadInterpolate{nullptr};
std::atomic<bool> GbThreadInterpolateFinished{true};
std::atomic<bool> GbGLLockForInterplateData{false};

namespace {

/// The rate stage that was started last; it may have ended. GUI thread only.
std::unique_ptr<ThreadInterpolator_cls> lastInterpolator;

/// Up to this many particles that are not where they were are searched for by scanning. More are worth an
/// index.
constexpr int kScannedParticles = 16;
/// Particles that a worker takes at a time.
constexpr int kRateBlock = 16384;

bool IsIndexWorthwhile(const RateArrays_cls& arrays, int matched) {
    if (!arrays.mIDA || !arrays.mIDB) return false;
    int moved = 0;
    for (int i = 0; i < matched && moved <= kScannedParticles; ++i) {
        if (arrays.mIDA[i] != arrays.mIDB[i]) ++moved;
    }
    return moved > kScannedParticles;
}

/// What finds particles by their ID: one of the two, or neither where scanning does.
struct Finder {
    std::unique_ptr<IDIndex_cls> index;
    std::unique_ptr<ShuffledPair_cls> shuffled;
    std::vector<std::unique_ptr<ShuffledMatcher_cls>> matchers;  ///< one for each worker
};

std::span<const int32_t> GetIDsOfB(const RateArrays_cls& arrays) {
    return {arrays.mIDB, static_cast<size_t>(arrays.mCountB)};
}

Finder MakeIndex(const RateArrays_cls& arrays) {
    try {
        Finder finder;
        finder.index = std::make_unique<IDIndex_cls>(GetIDsOfB(arrays));
        return finder;
    } catch (const std::bad_alloc&) {
        return {};  // scanning gives the same, only slower
    }
}

Finder MakeShuffled(const RateArrays_cls& arrays, int workers) {
    try {
        Finder finder;
        finder.shuffled =
            ShuffledPair_cls::Make({arrays.mIDA, static_cast<size_t>(arrays.mCountA)}, GetIDsOfB(arrays));
        for (int w = 0; w < workers && finder.shuffled; ++w) {
            finder.matchers.push_back(std::make_unique<ShuffledMatcher_cls>(*finder.shuffled));
        }
        return finder;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

/// A matcher's bits fill a processor's cache: more of them at a time would drive each other out.
int GetMatcherNumber(int countA) {
    return std::clamp(wxThread::GetCPUCount(), 1, ThreadInterpolator_cls::GetWorkerNumber(countA));
}

/// Clears the change of radius and value1 from one particle of A to the last.
void ClearWorkFrom(const RateArrays_cls& arrays, int begin) {
    std::fill(arrays.mRadiusWork + begin, arrays.mRadiusWork + arrays.mCountA, 0.0F);
    std::fill(arrays.mValue1Work + begin, arrays.mValue1Work + arrays.mCountA, 0.0F);
}

/// All rates, with a worker for every matcher or else by the number of particles. Returns the number of
/// particles whose ID is in B, but where no search looks for it.
int RunWorkers(const ThreadInterpolator_cls::Task& task, const RateArrays_cls& arrays, Finder& finder) {
    // Snapshots of one time, as a last snapshot and itself, are taken to be one time unit apart.
    const float dt = task.dt == 0.0F ? 1.0F : task.dt;
    const int matched = std::min(arrays.mCountA, arrays.mCountB);
    const bool sorted = task.variableNumber == DataLoader_cls::kSortByID;
    WorkShares_cls shares(matched,
                          finder.shuffled ? static_cast<int>(finder.matchers.size())
                                          : ThreadInterpolator_cls::GetWorkerNumber(arrays.mCountA),
                          sorted            ? WorkShares_cls::kWhole
                          : finder.shuffled ? ShuffledMatcher_cls::kMostParticles
                                            : kRateBlock);
    std::vector<std::unique_ptr<ThreadInterpolatorBlock_cls>> workers;
    for (int w = 0; w < shares.GetWorkers(); ++w) {
        workers.push_back(std::make_unique<ThreadInterpolatorBlock_cls>());
        workers.back()->SetParameters(arrays, shares, w, dt, task.variableNumber, task.periodic,
                                      finder.index.get());
        if (finder.shuffled) workers.back()->SetMatcher(std::move(finder.matchers[static_cast<size_t>(w)]));
    }
    // Where no kernel is made for the settings, nothing but the velocity that was read may be left.
    ClearWorkFrom(arrays, workers[0]->HasKernel() ? matched : 0);

    // The last worker is this thread itself, so that a small snapshot costs no further thread.
    for (size_t w = 0; w + 1 < workers.size(); ++w) {
        if (!workers[w]->Start()) MsgBoxExit("Can't create thread", "Error!");
    }
    workers.back()->Entry();
    int outOfReach = 0;
    for (const auto& worker : workers) {
        worker->Join();
        outOfReach += worker->GetOutOfReach();
    }
    return outOfReach;
}

}  // namespace

bool ThreadInterpolator_cls::StartInterpolating(const Task& task) {
    if (GpCThreadInterpolate.load(std::memory_order_acquire)) return false;
    // The one before may be finished and yet at its last acts; joined first, it can not undo what follows.
    JoinLast();
    lastInterpolator = std::make_unique<ThreadInterpolator_cls>();
    GbThreadInterpolateFinished.store(false, std::memory_order_release);
    GpCThreadInterpolate.store(lastInterpolator.get(), std::memory_order_release);
    lastInterpolator->SetParameters(task);
    if (!lastInterpolator->Start()) MsgBoxExit("Can't create thread", "Error!");
    return true;
}

void ThreadInterpolator_cls::JoinLast() {
    lastInterpolator.reset();
}

wxThread::ExitCode ThreadInterpolator_cls::Entry() {
    ComputeRates(mTask);
    mTask.interpolated->store(true, std::memory_order_release);
    GbThreadInterpolateFinished.store(true, std::memory_order_release);
    EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
    // The last act. Whoever waited may have cleared the pointer.
    ThreadInterpolator_cls* self = this;
    GpCThreadInterpolate.compare_exchange_strong(self, nullptr);
    return nullptr;
}

int ThreadInterpolator_cls::GetWorkerNumber(int countA) {
    int workers = 1;
    for (const int most : {100000, 300000, 1000000, 3000000, 10000000}) {
        if (countA > most) ++workers;
    }
    return workers;
}

void ThreadInterpolator_cls::ComputeRates(const Task& task) {
    RateArrays_cls arrays = task.arrays;
    arrays.mCountA = std::max(arrays.mCountA, 0);  // -1 stands for a snapshot that has not been read
    arrays.mCountB = std::max(arrays.mCountB, 0);
    if (task.outOfReach) task.outOfReach->store(0, std::memory_order_relaxed);
    if (task.interpolationType != DataLoader_cls::kLinear) {
        ClearWorkFrom(arrays, 0);
        if (task.interpolationType != DataLoader_cls::kHermite) {
            std::fill_n(arrays.mVelocity, 3 * static_cast<size_t>(arrays.mCountA), 0.0F);
        }
        return;
    }
    Finder finder;
    if (task.variableNumber == DataLoader_cls::kVariable &&
        IsIndexWorthwhile(arrays, std::min(arrays.mCountA, arrays.mCountB))) {
        finder = MakeShuffled(arrays, GetMatcherNumber(arrays.mCountA));
        if (!finder.shuffled) finder = MakeIndex(arrays);
    }
    int outOfReach = RunWorkers(task, arrays, finder);
    if (finder.shuffled && finder.shuffled->HasRepeats()) {
        finder = MakeIndex(arrays);
        outOfReach = RunWorkers(task, arrays, finder);
    }
    if (task.outOfReach) task.outOfReach->store(outOfReach, std::memory_order_relaxed);
}
