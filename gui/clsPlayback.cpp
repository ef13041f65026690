#include "gui/clsPlayback.h"

#include <algorithm>

#include "data/clsBodyProgress.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsThreadFileReader.h"
#include "gui/clsShownInstant.h"
#include "gui/clsWindowClock.h"
#include "seam/clsEventSink.h"
#include "timeline/clsCommandStartAnim.h"
#include "timeline/clsCommandStopAnim.h"
#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

namespace {

/// How often the status is refreshed while a reader runs, and at the latest looked at what is to be done.
constexpr int kReadingMs = 100;
/// Waits that are shorter are not spoken of.
constexpr long long kQuietMs = 200;
/// A window that nobody sees is not painted; playback goes on without.
constexpr long long kPaintPatienceMs = 500;

}  // namespace

Playback_cls::Playback_cls(FrameContext_cls& context, ShownInstant_cls& instant, const WindowClock_cls& clock,
                           Views views)
    : mContext(context), mInstant(instant), mClock(clock), mViews(std::move(views)), mTimer(this) {
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Work(); });
}

void Playback_cls::Start(int increment) {
    TimeCtrl_cls& time = mContext.timeCtrl;
    if (!HasData()) return;
    ReadOn();
    // Looking at what an undo has done must not cost the redo.
    if (GCUndoList.CanRedo()) {
        time.StartPlay(increment);
    } else {
        GCUndoList.PushAndExec(std::make_unique<CommandStartAnim_cls>(time, increment),
                               std::make_unique<CommandStopAnim_cls>(time, time.GetFrame()));
    }
    Work();
}

void Playback_cls::Stop() {
    mContext.timeCtrl.ProcStopPlaying();
}

void Playback_cls::StopReading() {
    // First of all: what stopping shows takes its time, and the reader would be done by then.
    const int reading = GThreadReaderIndex.load(std::memory_order_acquire);
    if (reading >= 0 && GpCThreadReader.load(std::memory_order_acquire)) {
        GbThreadReaderAbandoned.store(true, std::memory_order_relaxed);
        mContext.seqCtrl.ClearData(PDataSeqCtrl_cls::kActive, reading, false);
        GbThreadReaderAbandoned.store(false, std::memory_order_relaxed);
    }
    mContext.timeCtrl.ProcStopPlaying();
    mStoppedAt = mContext.timeCtrl.GetRemappedIndexDouble();
    mAwaitedSince.reset();
    EventSink_cls::PostToFrame(EventSink_cls::kRefreshStatus);
}

bool Playback_cls::IsSlow() const {
    return mAwaitedSince && Clock_cls::Current().Now() - *mAwaitedSince > kQuietMs;
}

bool Playback_cls::HasData() const {
    return mContext.seqCtrl.GetActive().GetSeqLength() > 0;
}

void Playback_cls::Work() {
    // Idle work never runs inside a wait.
    if (mWorking || mClock.IsWaiting() || !mInstant.MayPrepare()) return;
    mWorking = true;
    WorkOnData();
    WorkOnTime();
    mWorking = false;
}

void Playback_cls::WorkOnData() {
    PDataSeqCtrl_cls& data = mContext.seqCtrl;
    const TimeCtrl_cls& time = mContext.timeCtrl;
    const double position = time.GetRemappedIndexDouble();
    const auto [index, fraction] = data.GetActive().GetPlace(position);
    mContext.cleanUpMemory(index);
    if (mStoppedAt && *mStoppedAt != position) ReadOn();
    if (!HasData() || mStoppedAt) return;

    const bool ready = mInstant.IsReady();
    if (ready && !mWasReady) mViews.redraw();
    mWasReady = ready;
    if (ready) {
        mAwaitedSince.reset();
    } else if (!mAwaitedSince) {
        mAwaitedSince = Clock_cls::Current().Now();
    }
    if (ready) TellFaults(index);
    if (GpCThreadReader.load(std::memory_order_acquire)) {
        EventSink_cls::PostToFrame(EventSink_cls::kRefreshStatus);
        mTimer.StartOnce(kReadingMs);
    } else if (ready) {
        data.PrefetchNext(time);
    } else {
        data.PrepareIndex(index, fraction, time.IsInterpolateAlways(), false);
        // Rates may have been refused because others are under way.
        mTimer.StartOnce(kReadingMs);
    }
}

void Playback_cls::TellFaults(int snapshot) {
    std::vector<wxString> lines;
    for (const int index : {snapshot, snapshot + 1}) {
        for (const wxString& line : mContext.seqCtrl.GetActive().GetSnap(index).TakeProblems())
            lines.push_back(line);
    }
    const wxString note = mContext.seqCtrl.GetActive().GetSnap(snapshot).TakeNote();
    if (!note.empty()) lines.push_back(note);
    if (!lines.empty()) mViews.tellFaults(lines);
}

bool Playback_cls::HasShown() const {
    return mInstant.IsReady() &&
           (mViews.isShowing() || Clock_cls::Current().Now() - mSteppedAt > kPaintPatienceMs);
}

void Playback_cls::WorkOnTime() {
    TimeCtrl_cls& time = mContext.timeCtrl;
    if (!time.IsPlaying()) return;
    if (!HasData()) {
        time.ProcStopPlaying();
        return;
    }
    const long long remaining = time.GetPacer().GetRemaining();
    if (remaining > 0 || !HasShown()) {
        mTimer.StartOnce(static_cast<int>(std::clamp<long long>(remaining, 1, kReadingMs)));
        return;
    }
    mSteppedAt = Clock_cls::Current().Now();
    // Due, so this does not wait.
    if (time.ProcPlaying()) mTimer.StartOnce(FramePacer_cls::kInterval);
}
