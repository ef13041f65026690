#include "data/clsPDataSnap.h"

#include <algorithm>
#include <utility>

#include "data/clsPDataSequence.h"
#include "data/clsThreadFileReader.h"
#include "interp/clsThreadInterpolator.h"
#include "seam/clsClock.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsInputFile.h"

std::atomic<bool> GbGLLockForLoadingData{false};

std::function<void(int)> PDataSnap_cls::msWaitObserver;

namespace {

constexpr int kReaderPeriodMs = 5;
constexpr int kInterpolatorPeriodMs = 3;
constexpr int kObservedRounds = 100;

}  // namespace

PDataSnap_cls::PDataSnap_cls(PDataSequence_cls& sequence, int index)
    : mSequence(sequence), mBlock(std::make_unique<PDataBlock_cls>(this)), mIndex(index) {}

void PDataSnap_cls::LinkTo(PDataSnap_cls* previous, PDataSnap_cls* next) {
    mPrevious = previous;
    mNext = next;
}

void PDataSnap_cls::SetFilePath(const wxString& path) {
    mFilePath = path;
    mFileState = FileState::Unchecked;
    mProblemsTold = false;
    mNoteTold = false;
}

bool PDataSnap_cls::IsFileValid() {
    if (mFilePath.empty()) return false;
    if (mFileState == FileState::Unchecked) {
        mFileState = InputFile_cls::CanOpen(mFilePath) ? FileState::Readable : FileState::Unreadable;
    }
    return mFileState == FileState::Readable;
}

int PDataSnap_cls::GetParticleNumber() const {
    return std::max(mBlock->GetCount(), 0);
}

void PDataSnap_cls::LoadData() {
    WaitThreadReading(*this, false);
    if (IsFileValid()) StartReading();
}

void PDataSnap_cls::StartReading() {
    const auto reading = mBlock->LoadData(mFilePath);
    // Refused, because another reader is registered: not requested, so that whoever needs it asks again.
    mReadRequested = reading == PDataBlock_cls::Reading::Started;
    mReportWaits = mReadRequested;
    // The file vanished after it was found valid: the instant draws nothing, and nothing waits for it.
    if (reading == PDataBlock_cls::Reading::CannotOpen) mFileState = FileState::Unreadable;
}

void PDataSnap_cls::WaitThreadReading(const PDataSnap_cls& snapshot, bool which) const {
    if (!GpCThreadReader.load(std::memory_order_acquire)) return;
    const bool pending = !snapshot.IsLoaded() && snapshot.mReadRequested;
    if (which != pending) return;
    if (GbGLLockForLoadingData.load(std::memory_order_acquire)) {
        PrintDiagnostic("waitnig??\n");
        return;
    }
    GbGLLockForLoadingData.store(true, std::memory_order_release);
    PollUntil([] { return GbThreadReaderFinished.load(std::memory_order_acquire); }, kReaderPeriodMs,
              [](int round) {
                  if (round % kObservedRounds == 0 && msWaitObserver) msWaitObserver(round);
              });
    ThreadFileReader_cls::Retire();
    GbGLLockForLoadingData.store(false, std::memory_order_release);
    PrintDiagnostic("Set::GbGLLockForLoadingData = FALSE\n");
}

bool PDataSnap_cls::IsBusy() const {
    return IsLoaded() ? !IsInterpolated() : mReadRequested || mInterpolationRequested;
}

bool PDataSnap_cls::IsPreparing(bool interpolation) const {
    return interpolation ? IsBusy() : mReadRequested && !IsLoaded();
}

void PDataSnap_cls::WaitThreadInterpolate(const PDataSnap_cls& snapshot, bool which) const {
    if (!GpCThreadInterpolate.load(std::memory_order_acquire) || snapshot.IsBusy() != which) return;
    GbGLLockForInterplateData.store(true, std::memory_order_release);
    PollUntil(GbThreadInterpolateFinished, kInterpolatorPeriodMs);
    ThreadInterpolator_cls::JoinLast();
    GpCThreadInterpolate.store(nullptr, std::memory_order_release);
    GbGLLockForInterplateData.store(false, std::memory_order_release);
}

void PDataSnap_cls::InterpolateData(bool wait) {
    // The rates of particles that are still being read cannot be computed: the caller asks again.
    if (!IsLoaded()) return;
    if (mNext && !mNext->IsLoaded()) {
        WaitThreadReading(*mNext, false);
        if (!mNext->mReadRequested && mNext->IsFileValid()) mNext->StartReading();
        if (wait) WaitThreadReading(*mNext, true);
    }
    const bool hasNext = mNext && mNext->IsFileValid();
    if (hasNext && !mNext->IsLoaded()) return;
    if (wait && GpCThreadInterpolate.load(std::memory_order_acquire)) {
        // Another pair's rates are under way; only one stage runs at a time.
        WaitThreadInterpolate(*this, IsBusy());
    }
    mInterpolationRequested = mBlock->InterpolateData(hasNext ? *mNext->mBlock : *mBlock);
}

void PDataSnap_cls::ReleaseData() {
    WaitThreadReading(*this, true);
    // A rate stage works on its own snapshot and reads the next one.
    const bool ownRates = mInterpolationRequested && !IsInterpolated();
    const bool othersRates = mPrevious && mPrevious->mInterpolationRequested && !mPrevious->IsInterpolated();
    if (ownRates || othersRates) WaitThreadInterpolate(*this, IsBusy());
    if (mBlock->IsAllocated()) mSequence.BlockIsReleased(*mBlock);
    mBlock->ReleaseData();
    mReadRequested = false;
    mLoaded.store(false, std::memory_order_release);
    mInterpolationRequested = false;
    mInterpolated.store(false, std::memory_order_release);
}

void PDataSnap_cls::Clear(bool reset) {
    ReleaseData();
    if (!reset) return;
    mTime = kNoTime;
    SetFilePath({});
}

std::vector<wxString> PDataSnap_cls::TakeProblems() {
    if (!IsLoaded()) return {};
    if (std::exchange(mReportWaits, false)) mBlock->FinishLoadingData(mFilePath);
    std::vector<wxString> problems = mBlock->TakeProblems();
    if (mProblemsTold) return {};
    mProblemsTold = !problems.empty();
    return problems;
}

wxString PDataSnap_cls::TakeNote() {
    const int lost = mBlock->GetOutOfReach();
    if (!IsInterpolated() || lost == 0 || std::exchange(mNoteTold, true)) return {};
    return mFilePath +
           wxString::Format(
               ": %d of %d particles stand still on the way to the next file: their IDs are there, but "
               "more than 10000 places away",
               lost, GetParticleNumber());
}
