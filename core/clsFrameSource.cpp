#include "core/clsFrameSource.h"

#include "core/clsMain.h"
#include "data/clsThreadFileReader.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr size_t kMissingNamed = 3;

}  // namespace

const SnapData_cls* FrameSource_cls::Prepare(double position, std::span<const double> ahead) {
    PDataSequence_cls& sequence = mMain.GetSeqCtrl().GetActive();
    if (sequence.GetSeqLength() == 0) return nullptr;
    const PDataSequence_cls::Place place = sequence.GetPlace(position);
    mMain.CleanUpMemory(place.index);
    if (mVerbose) {
        PrintError(wxString::Format("data position %g: %d of %d MB in memory", position,
                                    mMain.GetUsedTotalMemoryMB(), mMain.GetMemoryLimitMB()));
    }
    sequence.PrepareIndex(place.index, place.fraction, mMain.GetTimeCtrl().IsInterpolateAlways(), true);
    ReadAhead(ahead);
    const SnapData_cls* state = mMain.PrepareState(position);
    TellFaults(place.index);
    if (place.fraction > 0.0) TellFaults(place.index + 1);
    return state;
}

void FrameSource_cls::ReadAhead(std::span<const double> ahead) {
    PDataSequence_cls& sequence = mMain.GetSeqCtrl().GetActive();
    const bool always = mMain.GetTimeCtrl().IsInterpolateAlways();
    for (const double position : ahead) {
        // Asked for while one runs, the next reading would wait for it.
        if (GpCThreadReader.load(std::memory_order_acquire)) return;
        const PDataSequence_cls::Place place = sequence.GetPlace(position);
        if (sequence.IsTheIndexReady(place.index, place.fraction, always)) continue;
        sequence.PrepareIndex(place.index, place.fraction, always, false);
    }
}

void FrameSource_cls::TellFaults(int snapshot) {
    PDataSnap_cls& snap = mMain.GetSeqCtrl().GetActive().GetSnap(snapshot);
    for (const wxString& problem : snap.TakeProblems()) {
        mAnyFault = true;
        PrintError(problem);
    }
    const wxString note = snap.TakeNote();
    if (!note.empty()) PrintError(note);
    if (snap.IsFileValid() || !mMissing.insert(snap.GetIndex()).second) return;
    // Series numbered in steps ("dump.0", "dump.1000") miss most of their members: not a line for each.
    wxString why;
    InputFile_cls::Open(snap.GetFilePath(), &why);
    if (mMissing.size() <= kMissingNamed) PrintError(snap.GetFilePath() + ": " + why);
}

bool FrameSource_cls::IsFaultless() const {
    if (mMissing.size() > kMissingNamed) {
        PrintError(wxString::Format(
            "%zu files of the series cannot be opened; files are counted in steps of 1", mMissing.size()));
    }
    return !mAnyFault && mMissing.empty();
}
