#include "seam/clsPieceWork.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <memory>
#include <vector>

#include "seam/clsJoinedThread.h"

namespace {

constexpr size_t kMostThreads = PieceWork_cls::kSlots / 2;

/// What is made and what is taken. Threads: MakeOne() on all, the rest on the caller's.
class Progress_cls {
  public:
    Progress_cls(size_t pieces, const PieceWork_cls::Function& make) : mPieces(pieces), mMake(make) {}

    /// Makes the next piece; false when none is left, or no slot is free.
    bool MakeOne() {
        size_t piece = mNext.load(std::memory_order_relaxed);
        do {
            if (piece >= std::min(mPieces, mTaken.load(std::memory_order_acquire) + kSlots)) return false;
        } while (!mNext.compare_exchange_weak(piece, piece + 1, std::memory_order_relaxed));
        const size_t slot = piece % kSlots;
        try {
            mMake(piece, slot);
        } catch (...) {
            mErrors[slot] = std::current_exception();
        }
        mMade[slot].store(piece + 1, std::memory_order_release);
        return true;
    }
    /// Takes the next piece over; false while it is not made. Throws what the piece threw.
    bool TakeOne(const PieceWork_cls::Function& take) {
        const size_t piece = mTaken.load(std::memory_order_relaxed);
        const size_t slot = piece % kSlots;
        if (mMade[slot].load(std::memory_order_acquire) != piece + 1) return false;
        if (mErrors[slot]) std::rethrow_exception(mErrors[slot]);
        take(piece, slot);
        mTaken.store(piece + 1, std::memory_order_release);
        return true;
    }
    bool IsOver() const { return mTaken.load(std::memory_order_relaxed) == mPieces; }

  private:
    static constexpr size_t kSlots = PieceWork_cls::kSlots;

    const size_t mPieces;
    const PieceWork_cls::Function& mMake;
    std::atomic<size_t> mNext{0};
    std::atomic<size_t> mTaken{0};
    std::array<std::atomic<size_t>, kSlots> mMade{};  ///< number of the piece in the slot, and one
    std::array<std::exception_ptr, kSlots> mErrors;
};

/// Makes pieces until none is left. One that runs far ahead of the caller gives up: then it is not the pieces
/// that take the time.
class Helper_cls final : public JoinedThread_cls {
  public:
    explicit Helper_cls(Progress_cls& progress) : mProgress(progress) {}
    ~Helper_cls() override { Join(); }
    ExitCode Entry() override {
        while (mProgress.MakeOne()) {
        }
        return nullptr;
    }

  private:
    Progress_cls& mProgress;
};

}  // namespace

void PieceWork_cls::Run(size_t pieces, const Function& make, const Function& take) {
    if (pieces == 0) return;
    Progress_cls progress(pieces, make);
    const auto processors = static_cast<size_t>(std::max(wxThread::GetCPUCount(), 1));
    std::vector<std::unique_ptr<Helper_cls>> helpers(std::min({processors, kMostThreads, pieces}) - 1);
    for (auto& helper : helpers) {
        helper = std::make_unique<Helper_cls>(progress);
        // Without a helper the caller does its share.
        helper->Start();
    }
    while (!progress.IsOver()) {
        if (progress.TakeOne(take) || progress.MakeOne()) continue;
        // The others are at the pieces that come next; after those the caller works alone.
        for (const auto& helper : helpers) helper->Join();
    }
}
