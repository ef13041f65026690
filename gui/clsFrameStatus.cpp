#include "gui/clsFrameStatus.h"

#include <wx/bmpbuttn.h>

#include <array>
#include <filesystem>

#include "data/clsBodyProgress.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsThreadFileReader.h"
#include "gui/clsDrawWatch.h"
#include "gui/clsFrameContext.h"
#include "gui/clsIcons.h"
#include "gui/clsPlayback.h"
#include "gui/clsProgressLine.h"
#include "render/clsDrawOption.h"
#include "seam/clsClock.h"
#include "seam/clsTextCoding.h"
#include "timeline/clsTimeCtrl.h"

namespace {

enum Field : int { kReading, kInstant, kDrawn, kMemory };

constexpr long long kPlayingMs = 100;
const wxSize kLineSize(110, 6);

/// As the user named it: a series with other names is read through links.
wxString FileNameOf(const wxString& path) {
    std::error_code isNoLink;
    const std::filesystem::path target = std::filesystem::read_symlink(ToBytes(path), isNoLink);
    return (isNoLink ? path : FromBytes(target.string())).AfterLast('/');
}

}  // namespace

FrameStatus_cls::FrameStatus_cls(wxWindow* parent, const FrameContext_cls& context,
                                 const Playback_cls& playback, const DrawWatch_cls& watch,
                                 std::function<void()> stop)
    : wxStatusBar(parent, wxID_ANY, wxSTB_DEFAULT_STYLE, "status"),
      mContext(context),
      mPlayback(playback),
      mWatch(watch),
      mLine(new ProgressLine_cls(this, FromDIP(kLineSize))),
      mStop(new wxBitmapButton(this, wxID_ANY, Icons_cls::Get("stop", *this), wxDefaultPosition,
                               wxDefaultSize, wxBORDER_NONE | wxBU_EXACTFIT, wxDefaultValidator, "Stop")) {
    SetMinHeight(mStop->GetBestSize().y);
    mLine->SetToolTip("How much of the snapshot has been read or of the picture drawn, in percent");
    mStop->SetToolTip("Stop reading and drawing; the picture stays as it is (Esc)");
    mStop->Bind(wxEVT_BUTTON, [stop = std::move(stop)](wxCommandEvent&) { stop(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        PlaceProgress();
        event.Skip();
    });
    constexpr std::array<int, 4> kShares = {-5, -4, -4, -3};
    SetFieldsCount(static_cast<int>(kShares.size()), kShares.data());
    mLine->Hide();
    mStop->Hide();
    RefreshFromModel();
}

void FrameStatus_cls::Put(int field, const wxString& text) {
    if (GetStatusText(field) != text) SetStatusText(text, field);
}

void FrameStatus_cls::RefreshFromModel() {
    // Every text waits for the screen; nobody reads faster than this.
    const long long now = Clock_cls::Current().Now();
    if (mContext.timeCtrl.IsPlaying() && now - mShownAt < kPlayingMs) return;
    mShownAt = now;
    ShowProgress();
    Put(kReading, mSaving.empty() ? Reading() : Reading() + "  |  " + mSaving);
    Put(kInstant, Instant());
    Put(kDrawn, Drawn());
    Put(kMemory, Memory());
}

void FrameStatus_cls::PaintNow() {
    RefreshFromModel();
    Update();
    mLine->Update();
}

void FrameStatus_cls::ShowSaving(const wxString& words) {
    mSaving = words;
    RefreshFromModel();
}

void FrameStatus_cls::ShowProgress() {
    const bool slow = mPlayback.IsSlow() || mWatch.GetPercentage();
    if (slow) {
        const int reading = GThreadReaderPercentage.load(std::memory_order_relaxed);
        mLine->SetValue(mWatch.GetPercentage().value_or(reading));
    }
    if (mLine->IsShown() == slow) return;
    PlaceProgress();
    mLine->Show(slow);
    mStop->Show(slow);
}

void FrameStatus_cls::PlaceProgress() {
    wxRect field;
    if (!GetFieldRect(kReading, field)) return;
    const wxSize button = mStop->GetBestSize();
    const wxSize line = mLine->GetSize();
    const auto middle = [&field](const wxSize& size) { return field.y + (field.height - size.y) / 2; };
    mStop->SetSize(wxRect(wxPoint(field.GetRight() - button.x, middle(button)), button));
    mLine->Move(field.GetRight() - button.x - line.x, middle(line));
}

wxString FrameStatus_cls::Reading() const {
    const PDataSequence_cls& data = mContext.seqCtrl.GetActive();
    if (data.GetSeqLength() == 0) return "no data: Ctrl+D opens a file, or drop one here";
    const int reading = GThreadReaderIndex.load(std::memory_order_acquire);
    if (reading >= 0 && GpCThreadReader.load(std::memory_order_acquire)) {
        return wxString::Format("reading %s %d %%", FileNameOf(data.GetFilename(reading)),
                                GThreadReaderPercentage.load(std::memory_order_relaxed));
    }
    if (const auto percentage = mWatch.GetPercentage()) return wxString::Format("drawing %d %%", *percentage);
    if (mPlayback.IsReadingStopped()) return "reading was stopped; the next step reads on";
    const int shown = mContext.timeCtrl.GetRemappedIndex();
    if (data.GetFilenameStatus(shown) == PDataSnap_cls::FileState::Unreadable)
        return data.GetFilename(shown) + " cannot be read";
    return FileNameOf(data.GetFilename(shown));
}

wxString FrameStatus_cls::Instant() const {
    const TimeCtrl_cls& time = mContext.timeCtrl;
    wxString text = wxString::Format("frame %d of %d", time.GetFrame(), time.GetMaxFrame());
    const PDataSequence_cls& data = mContext.seqCtrl.GetActive();
    if (data.GetSeqLength() == 0) return text;
    const auto [index, fraction] = data.GetPlace(time.GetRemappedIndexDouble());
    const double start = data.GetTime(index);
    if (start != PDataSnap_cls::kNoTime)
        text += wxString::Format("  |  t = %.6g", start + data.GetDT(index, fraction));
    return text;
}

wxString FrameStatus_cls::Drawn() const {
    const PDataSequence_cls& data = mContext.seqCtrl.GetActive();
    if (data.GetSeqLength() == 0) return {};
    const PDataSnap_cls& snap = data.GetSnap(mContext.timeCtrl.GetRemappedIndex());
    const int all = snap.IsItLoaded() ? snap.GetParticleNumber() : 0;
    const long long step = static_cast<long long>(mContext.drawOption.GetStep()) * mWatch.GetCoarseness();
    return wxString::Format("%lld of %d particles drawn", (all + step - 1) / step, all);
}

wxString FrameStatus_cls::Memory() const {
    return wxString::Format("%d of %d MB", mContext.seqCtrl.GetUsedTotalMemoryMB(),
                            mContext.seqCtrl.GetMemoryLimitMB());
}
