#include "data/clsPDataSeqCtrl.h"

#include <algorithm>
#include <cstdlib>

#include "seam/clsDiagnostics.h"
#include "timeline/clsTimeCtrl.h"

namespace {

constexpr int kLargeLimitMB = 4096;
constexpr int kSmallLimitMB = 768;

}  // namespace

PDataSeqCtrl_cls::PDataSeqCtrl_cls(bool largeLimit) : mLimitMB(largeLimit ? kLargeLimitMB : kSmallLimitMB) {
    for (unsigned int i = 0; i < kSequences; ++i) mSequences[i] = std::make_unique<PDataSequence_cls>(i);
}

void PDataSeqCtrl_cls::ClearData(int which, int snapshot, bool resetNames) {
    if (which == kAllSequences) {
        for (const auto& sequence : mSequences) sequence->Clear(snapshot, resetNames);
        return;
    }
    GetSequence(which == kActive ? mActive : which).Clear(snapshot, resetNames);
}

void PDataSeqCtrl_cls::PrepareIndex(int index, double fraction, bool interpolateAlways, bool wait) {
    GetActive().PrepareIndex(index, fraction, interpolateAlways, wait);
}

bool PDataSeqCtrl_cls::IsTheIndexReady(int index, double fraction, bool interpolateAlways) {
    return GetActive().IsTheIndexReady(index, fraction, interpolateAlways);
}

void PDataSeqCtrl_cls::CleanUpMemory(int currentSnapshot, int step) {
    PDataSequence_cls& active = GetActive();
    mUsedMB = active.GetUsedTotalMemoryMB();
    active.ReleaseMemoryOutofStep(step, currentSnapshot);
    if (mReleasedAt != currentSnapshot) mReleased.clear();
    mReleasedAt = currentSnapshot;
    while (mUsedMB > mLimitMB) {
        const int released = active.ReleaseFarthest(currentSnapshot, step);
        if (released < 0) break;
        mReleased.push_back(released);
        mUsedMB = active.GetUsedTotalMemoryMB();
    }
}

int PDataSeqCtrl_cls::GetAverageMemoryMB() const {
    const int loaded = GetActive().GetLoadedFrameNumber();
    return loaded == 0 ? -1 : mUsedMB / loaded;
}

void PDataSeqCtrl_cls::PrefetchNext(const TimeCtrl_cls& time) {
    const long long reach = static_cast<long long>(time.GetPrefetch()) * time.GetPlayIncrement();
    const long long direction = reach < 0 ? -1 : 1;
    for (long long k = 1; k <= std::abs(reach); ++k) {
        const long long frame = time.GetFrame() + direction * k * time.GetSettings().GetAnimStep();
        if (frame < 0 || frame > time.GetMaxFrame()) return;
        if (IsFrameReady(time, static_cast<int>(frame))) continue;
        // What has just been released would be released again, and so on without end.
        const int index = PlaceOf(time, static_cast<int>(frame)).index;
        const bool fits = std::none_of(mReleased.begin(), mReleased.end(), [index](int released) {
            return released == index || released == index + 1;
        });
        if (fits) PrepareFrame(time, static_cast<int>(frame));
        return;
    }
}

PDataSequence_cls::Place PDataSeqCtrl_cls::PlaceOf(const TimeCtrl_cls& time, int frame) const {
    return GetActive().GetPlace(time.GetRemappedIndexDouble(frame, 0));
}

bool PDataSeqCtrl_cls::IsFrameReady(const TimeCtrl_cls& time, int frame) {
    const auto [index, fraction] = PlaceOf(time, frame);
    return IsTheIndexReady(index, fraction, time.IsInterpolateAlways());
}

void PDataSeqCtrl_cls::PrepareFrame(const TimeCtrl_cls& time, int frame) {
    const auto [index, fraction] = PlaceOf(time, frame);
    StopIfLoading();
    PrepareIndex(index, fraction, time.IsInterpolateAlways(), false);
}

void PDataSeqCtrl_cls::SetSnipping(int index) {
    for (const auto& sequence : mSequences) sequence->SetSnipping(index);
}

void PDataSeqCtrl_cls::ClearSnipping() {
    for (const auto& sequence : mSequences) sequence->ClearSnipping();
}

void PDataSeqCtrl_cls::SetProjectFolder(const wxString& folder) {
    for (const auto& sequence : mSequences) sequence->SetProjectFolder(folder);
}

wxString PDataSeqCtrl_cls::Serialize() const {
    wxString text;
    for (const auto& sequence : mSequences) text += sequence->Serialize();
    return text;
}

bool PDataSeqCtrl_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    bool taken = false;
    for (const auto& sequence : mSequences) taken = sequence->ReadStrLine(stream, line) || taken;
    return taken;
}

void StopIfLoading() {
    if (!GbGLLockForLoadingData.load(std::memory_order_acquire)) return;
    HardStop("GbGLLockForLoadingData == TRUE\nPrepare impossible");
}
