#include "gui/clsDataOpening.h"

#include <wx/progdlg.h>
#include <wx/translation.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <algorithm>
#include <memory>

#include "data/clsBodyProgress.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsSeriesFolder.h"
#include "data/clsSeriesRestore.h"
#include "data/clsStepSplitter.h"
#include "gui/clsDataLoaderGUI.h"
#include "gui/clsFirstColors.h"
#include "gui/clsFrameContext.h"
#include "gui/clsSetting.h"
#include "interp/clsPeriodicBoundary.h"
#include "render/clsColorCurve.h"
#include "seam/clsClock.h"
#include "seam/clsUserMessage.h"

namespace {

/// Work that is done sooner shows no progress.
constexpr int kOpeningPeriodMs = 5;
constexpr int kQuietRounds = 60;
constexpr int kWhole = 100;

std::unique_ptr<wxProgressDialog> ShowProgress(wxWindow* parent, const wxString& title,
                                               const wxString& words) {
    return std::make_unique<wxProgressDialog>(
        title, words, kWhole, parent, wxPD_APP_MODAL | wxPD_CAN_ABORT | wxPD_SMOOTH | wxPD_REMAINING_TIME);
}

/// Its dialog is there until the last copy of it is gone.
StepSplitter_cls::Progress SplitProgress(wxWindow* parent, const wxString& path) {
    return [parent, path, dialog = std::shared_ptr<wxProgressDialog>()](uint64_t done, uint64_t all) mutable {
        if (!dialog) dialog = ShowProgress(parent, _("Splitting into a series"), path);
        const auto part = static_cast<int>(kWhole * done / std::max<uint64_t>(all, 1));
        return dialog->Update(std::min(part, kWhole - 1));
    };
}

/// The files to open instead of the chosen one; empty when that failed or was cancelled.
wxString SplitSteps(wxWindow* parent, const wxString& path) {
    const auto result = StepSplitter_cls::Split(path, SplitProgress(parent, path));
    if (!result.words.empty()) UserMessage_cls::Tell(_("Warning"), result.words);
    return result.first;
}

wxString MakeSeries(wxWindow* parent, const LoadDraft_cls& draft) {
    if (!draft.IsAsSeries()) return draft.GetFile();
    SeriesFolder_cls::RemoveStale();
    if (draft.HasManySteps()) return SplitSteps(parent, draft.GetFile());
    const SeriesFolder_cls folder(draft.GetFile(), SeriesFolder_cls::Content::Links);
    const wxString why = folder.MakeLinks(draft.GetSeries());
    if (why.empty()) return folder.GetMember(0);
    UserMessage_cls::Tell(_("Warning"), why);
    return {};
}

/// Makes a settings object like another one, as a step of the undo list.
template <class Settings>
void SetLike(const wxString& name, Settings& settings, const Settings& wanted) {
    using Copy = std::shared_ptr<const Settings>;
    const auto copy = [](const Settings& source) {
        auto result = std::make_shared<Settings>();
        result->CopyFrom(source);
        return Copy(result);
    };
    CommandSetValue_cls<Copy>::Push(
        name, [&settings](const Copy& value) { settings.CopyFrom(*value); }, copy(settings), copy(wanted),
        kSettingUpdates);
}

void SetBox(PeriodicBoundary_cls& periodic, const LoadPreset_cls::Box& box) {
    PeriodicBoundary_cls wanted;
    wanted.CopyFrom(periodic);
    wanted.SetBox(box.space, box.length);
    SetLike("Periodic Box", periodic, wanted);
}

/// The data's own box; without one, that of the data before does not hold for these.
void ChooseBox(PeriodicBoundary_cls& periodic, const LoadDraft_cls& draft) {
    if (draft.mUseBox && draft.GetBox()) {
        SetBox(periodic, *draft.GetBox());
        periodic.NoteTold();
    } else if (periodic.IsTold()) {
        PeriodicBoundary_cls open;
        open.CopyFrom(periodic);
        open.mType.mValue = PeriodicBoundary_cls::kNone;
        SetLike("Periodic Box", periodic, open);
    }
}

/// False when it cannot be read, or the user does not want to wait. `rates` waits until it is interpolated
/// too: velocities are then those that will be drawn, which may be other than the file's.
bool WaitForFirstSnapshot(wxWindow* parent, PDataSeqCtrl_cls& sequences, bool rates) {
    PDataSequence_cls& sequence = sequences.GetActive();
    if (sequence.GetSeqLength() == 0) return false;
    std::unique_ptr<wxProgressDialog> dialog;
    bool cancelled = false;
    const auto isDone = [&] {
        // Another snapshot may be under way: asked again, this one is begun behind it.
        sequences.PrepareIndex(0, 0.0, rates, false);
        return cancelled || sequences.IsTheIndexReady(0, 0.0, rates);
    };
    PollUntil(isDone, kOpeningPeriodMs, [&](int round) {
        if (round < kQuietRounds) return;
        if (!dialog) dialog = ShowProgress(parent, _("Reading the first snapshot"), sequence.GetFilename(0));
        cancelled = !dialog->Update(std::clamp(GThreadReaderPercentage.load(), 0, kWhole - 1));
    });
    return !cancelled && sequence.GetSnap(0).IsItLoaded();
}

}  // namespace

void ConnectSeriesProgress(wxWindow* frame) {
    SeriesRestore_cls::SetProgress([frame = wxWeakRef<wxWindow>(frame)](const wxString& path) {
        return SplitProgress(frame.get(), path);
    });
}

bool OpenDraft(wxWindow* parent, FrameContext_cls& context, const LoadDraft_cls& draft) {
    const wxString path = MakeSeries(parent, draft);
    if (path.empty()) return false;
    const wxBusyCursor busy;
    const UndoBlock_cls block("Open Data");
    SetLike("Loader Settings", context.dataLoader, draft.GetLoader());
    ChooseBox(context.periodicBoundary, draft);
    context.openData(path);
    if (draft.mColors == LoadDraft_cls::kColorByType) {
        ColorByType(context.seqCtrl.GetActive(), context.drawOption);
    } else if (draft.mColors == LoadDraft_cls::kColorByValue &&
               WaitForFirstSnapshot(parent, context.seqCtrl,
                                    FirstValue(context.dataLoader) == ColorCurve_cls::kVelocity)) {
        if (const SnapData_cls* first = context.prepareState(0.0))
            ColorByValue(context.seqCtrl.GetActive(), *first, context.drawOption, context.dataLoader);
    }
    return true;
}

bool OpenDataByDialog(wxWindow* parent, FrameContext_cls& context, const wxString& path) {
    LoadDraft_cls draft(context.dataLoader);
    if (!path.empty()) draft.SetFile(path);
    for (;;) {
        DataLoaderGUI_cls dialog(parent, draft);
        if (dialog.ShowModal() != wxID_OK) return false;
        if (OpenDraft(parent, context, draft)) return true;
    }
}

bool OpenDataFile(wxWindow* parent, FrameContext_cls& context, const wxString& path) {
    LoadDraft_cls draft(context.dataLoader);
    draft.SetFileOnly(path);
    const bool fits = !draft.IsFileGood() || (!draft.CanBeSeries() && draft.GetPreview().mMisfit.empty());
    // A file that is not there is told when it is opened.
    return fits ? OpenDraft(parent, context, draft) : OpenDataByDialog(parent, context, path);
}
