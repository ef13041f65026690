#include "data/clsPDataSequence.h"

#include <algorithm>
#include <cstdlib>

#include "data/clsDataName.h"
#include "data/clsParticleBuffer.h"
#include "data/clsSeriesRestore.h"
#include "interp/clsSnapData.h"
#include "interp/clsThreadInterpolator.h"
#include "render/clsGLAttribute.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsLineStream.h"

PDataSequence_cls::PDataSequence_cls(unsigned int number) {
    mSnapshots.reserve(kMaxLength);
    for (int i = 0; i < kMaxLength; ++i) mSnapshots.push_back(std::make_unique<PDataSnap_cls>(*this, i));
    for (size_t i = 0; i < mSnapshots.size(); ++i) {
        mSnapshots[i]->LinkTo(i > 0 ? mSnapshots[i - 1].get() : nullptr,
                              i + 1 < mSnapshots.size() ? mSnapshots[i + 1].get() : nullptr);
    }
    for (int i = 0; i < kAttributes; ++i) {
        mAttributes[static_cast<size_t>(i)] = std::make_unique<GLAttribute_cls>(number, i);
    }
    // The item never gets a value: its line reads "DataSequence0=NONE", and the name stands on the next one.
    mKeyItem.SetItem(wxString::Format("DataSequence%u=", number), {});
}

PDataSequence_cls::~PDataSequence_cls() {
    Clear(kAll, true);
}

void PDataSequence_cls::OpenDataFile(const wxString& path) {
    mFiles.Set(SeriesRestore_cls::Restore(path));
    mFiles.CalcMaxOffset();
    SetIndividualFilenames();
}

void PDataSequence_cls::SetIndividualFilenames() {
    for (int i = 0; i < GetSeqLength(); ++i)
        mSnapshots[static_cast<size_t>(i)]->SetFilePath(mFiles.GetModifiedStr(i));
}

void PDataSequence_cls::SetSeqLength(int length) {
    mFiles.SetCount(length);
}

int PDataSequence_cls::GetSeqLength() const {
    return std::clamp(mFiles.GetCount(), 0, kMaxLength);
}

int PDataSequence_cls::ClampIndexWithinRange(int index) const {
    const int length = GetSeqLength();
    // Without data the number is used as it is, as far as there are snapshots.
    return std::clamp(index, 0, (length >= 1 ? length : kMaxLength) - 1);
}

PDataSequence_cls::Place PDataSequence_cls::GetPlace(double position) const {
    const double last = std::max(GetSeqLength() - 1, 0);
    const double clamped = position > 0.0 ? std::min(position, last) : 0.0;
    const int index = static_cast<int>(clamped);
    return {.index = index, .fraction = clamped - index};
}

void PDataSequence_cls::Clear(int snapshot, bool reset) {
    if (reset) mFiles = FileSequence_cls();
    if (snapshot == kAll) {
        for (const auto& snap : mSnapshots) snap->Clear(reset);
        // Nothing like them may be read for a long time.
        ParticleBuffer_cls::DropSpare();
        return;
    }
    GetSnap(snapshot).Clear(reset);
}

SnapAttributes_cls PDataSequence_cls::GetSnapAttributes() const {
    SnapAttributes_cls all;
    for (size_t i = 0; i < all.size(); ++i) all[i] = mAttributes[i]->GetSnapAttribute();
    return all;
}

bool PDataSequence_cls::IsInterpolationNeeded(double fraction, bool interpolateAlways) const {
    return SnapData_cls::IsInterpolateRequired(GetSnapAttributes()) || fraction != 0.0 || interpolateAlways;
}

void PDataSequence_cls::PrepareIndex(int index, double fraction, bool interpolateAlways, bool wait) {
    const bool interpolate = IsInterpolationNeeded(fraction, interpolateAlways);
    PDataSnap_cls& snap = GetSnap(index);
    if (!snap.IsLoaded() && !snap.IsReadRequested()) snap.LoadData();
    if (snap.IsLoaded() && snap.IsInterpolated()) return;
    if (wait) snap.WaitThreadReading(snap, true);
    if (!interpolate) return;
    if (!snap.IsInterpolationRequested() && !snap.IsInterpolated()) snap.InterpolateData(wait);
    if (wait) snap.WaitThreadInterpolate(snap, true);
}

bool PDataSequence_cls::IsTheIndexReady(int index, double fraction, bool interpolateAlways) {
    PDataSnap_cls& snap = GetSnap(index);
    if (!snap.IsFileValid()) return true;
    if (!snap.IsItLoaded()) return false;
    return !IsInterpolationNeeded(fraction, interpolateAlways) ||
           (snap.IsInterpolationRequested() && snap.IsInterpolated());
}

bool PDataSequence_cls::IsTheIndexLoaded(int index) const {
    return GetSnap(index).IsItLoaded();
}

int PDataSequence_cls::GetUsedTotalMemoryMB() const {
    long long sum = 0;
    for (int i = 0; i < GetSeqLength(); ++i) sum += mSnapshots[static_cast<size_t>(i)]->GetUsedMemoryKB();
    return static_cast<int>(sum / 1024);
}

int PDataSequence_cls::GetLoadedFrameNumber() const {
    const auto end = mSnapshots.begin() + GetSeqLength();
    return static_cast<int>(
        std::count_if(mSnapshots.begin(), end, [](const auto& s) { return s->IsLoaded(); }));
}

void PDataSequence_cls::ReleaseMemoryOutofStep(int step, int shown) {
    const int distance = std::max(std::abs(step), 1);
    for (int i = 1; i < GetSeqLength(); ++i) {
        // Remainder 0 is shown, remainder 1 is its neighbour for interpolation.
        PDataSnap_cls& snap = *mSnapshots[static_cast<size_t>(i)];
        const bool needed = i == shown || i == shown + 1;
        if (i % distance > 1 && !needed && snap.IsItLoaded()) snap.ReleaseData();
    }
}

int PDataSequence_cls::FarthestLoaded(int from, int to, bool tag) const {
    const int direction = from > to ? -1 : 1;
    for (int i = from; i != to; i += direction) {
        const PDataSnap_cls& snap = *mSnapshots[static_cast<size_t>(i)];
        if (snap.IsItLoaded() && snap.IsTagged() == tag) return i;
    }
    return -1;
}

int PDataSequence_cls::SearchLowNeedStepLarge(int current, bool tag) const {
    const int last = GetSeqLength() - 1;
    return current < last ? FarthestLoaded(last, std::max(current, -1), tag) : -1;
}

int PDataSequence_cls::SearchLowNeedStepSmall(int current, bool tag) const {
    return current >= 1 ? FarthestLoaded(0, std::min(current, GetSeqLength()), tag) : -1;
}

int PDataSequence_cls::ReleaseFarthest(int current, int step) {
    const int far = 3 * step;
    const int after = SearchLowNeedStepLarge(current, false);
    const int before = SearchLowNeedStepSmall(current, false);
    const int afterTagged = SearchLowNeedStepLarge(current, true);
    const int beforeTagged = SearchLowNeedStepSmall(current, true);
    // Distances; playback seldom goes back, so those behind of untagged snapshots count double.
    const int a = after < 0 ? 0 : after - current;
    const int b = before < 0 ? 0 : 2 * (current - before);
    const int c = afterTagged < 0 ? 0 : afterTagged - current;
    const int d = beforeTagged < 0 ? 0 : current - beforeTagged;

    int chosen = -1;
    if (a > b && a > far && c < 2 * a) {
        chosen = after;
    } else if (before >= 0 && d < b) {
        chosen = before;
    } else if (c > 2 * d && c > far) {
        chosen = afterTagged;
    } else {
        chosen = beforeTagged;
    }
    if (chosen >= 0) mSnapshots[static_cast<size_t>(chosen)]->ReleaseData();
    return chosen;
}

void PDataSequence_cls::SetSnipping(int index) {
    GetSnap(index).SetTagged(true);
}

void PDataSequence_cls::ClearSnipping() {
    for (int i = 0; i < GetSeqLength(); ++i) mSnapshots[static_cast<size_t>(i)]->SetTagged(false);
}

double PDataSequence_cls::GetDT(int index, double factor) const {
    const PDataSnap_cls& next = GetSnap(index + 1);
    if (next.GetFileState() == PDataSnap_cls::FileState::Unreadable) return 0.0;
    const double from = GetTime(index);
    const double to = next.GetTime();
    if (from == PDataSnap_cls::kNoTime || to == PDataSnap_cls::kNoTime) return 0.0;
    return (to - from) * factor;
}

void PDataSequence_cls::Special_Copy(int from, int to) {
    const PDataSnap_cls& source = GetSnap(from);
    PDataSnap_cls& target = GetSnap(to);
    if (&source == &target || !source.IsLoaded() || !target.IsLoaded()) return;
    if (source.GetParticleNumber() != target.GetParticleNumber()) return;
    target.GetBlock().Special_Copy(source.GetBlock());
}

wxString PDataSequence_cls::GetNameForProject() const {
    const wxString& path = mFiles.GetPath();
    // In another folder the same name may mean nothing, or other data.
    const bool holds = !mNameAsRead.empty() && mFolderAsRead == mProjectFolder;
    if (holds && DataName::Resolve(mProjectFolder, mNameAsRead) == path) return mNameAsRead;
    return DataName::ForProject(mProjectFolder, path);
}

wxString PDataSequence_cls::Serialize() const {
    wxString text = mKeyItem.Serialize() + GetNameForProject() + "\n";
    for (const auto& attribute : mAttributes) text += attribute->Serialize();
    return text;
}

bool PDataSequence_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    bool taken = line.StartsWith(mKeyItem.GetKey());
    if (taken) {
        wxString path;
        if (stream.ReadLine(path)) path.Trim();
        if (!path.empty()) {
            mNameAsRead = path;
            mFolderAsRead = mProjectFolder;
            OpenDataFile(DataName::Resolve(mProjectFolder, path));
        }
    }
    for (const auto& attribute : mAttributes) taken = attribute->ReadStrLine(stream, line) || taken;
    return taken;
}
