#include "seam/clsPieceWork.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <memory>
#include <vector>

#include "seam/clsJoinedThread.h"

namespace {

constexpr size_t kMostThreads = 8;

/// As many pieces as there are slots.
class Round_cls {
  public:
    Round_cls(size_t first, size_t count, const PieceWork_cls::Function& make)
        : mFirst(first), mCount(count), mMake(make) {}

    /// Makes the next piece; false when none is left.
    bool MakeOne() {
        const size_t slot = mNext.fetch_add(1, std::memory_order_relaxed);
        if (slot >= mCount) return false;
        try {
            mMake(mFirst + slot, slot);
        } catch (...) {
            mErrors[slot] = std::current_exception();
        }
        mMade[slot].store(true, std::memory_order_release);
        return true;
    }
    /// Throws what the piece threw.
    bool IsMade(size_t slot) const {
        if (!mMade[slot].load(std::memory_order_acquire)) return false;
        if (mErrors[slot]) std::rethrow_exception(mErrors[slot]);
        return true;
    }

  private:
    const size_t mFirst;
    const size_t mCount;
    const PieceWork_cls::Function& mMake;
    std::atomic<size_t> mNext{0};
    std::array<std::atomic<bool>, PieceWork_cls::kSlots> mMade{};
    std::array<std::exception_ptr, PieceWork_cls::kSlots> mErrors;
};

class Helper_cls final : public JoinedThread_cls {
  public:
    explicit Helper_cls(Round_cls& round) : mRound(round) {}
    ~Helper_cls() override { Join(); }
    ExitCode Entry() override {
        while (mRound.MakeOne()) {
        }
        return nullptr;
    }

  private:
    Round_cls& mRound;
};

void RunRound(size_t first, size_t count, const PieceWork_cls::Function& make,
              const PieceWork_cls::Function& take) {
    Round_cls round(first, count, make);
    const auto processors = static_cast<size_t>(std::max(wxThread::GetCPUCount(), 1));
    std::vector<std::unique_ptr<Helper_cls>> helpers(std::min({processors, kMostThreads, count}) - 1);
    for (auto& helper : helpers) {
        helper = std::make_unique<Helper_cls>(round);
        // Without a helper the caller does its share.
        helper->Start();
    }
    for (size_t slot = 0; slot < count;) {
        if (round.IsMade(slot)) {
            take(first + slot, slot);
            ++slot;
        } else if (!round.MakeOne()) {
            // The others are at their last pieces.
            for (const auto& helper : helpers) helper->Join();
        }
    }
}

}  // namespace

void PieceWork_cls::Run(size_t pieces, const Function& make, const Function& take) {
    for (size_t first = 0; first < pieces; first += kSlots)
        RunRound(first, std::min(kSlots, pieces - first), make, take);
}
