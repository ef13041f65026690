#include "gui/clsFrameFiles.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "data/clsDataLoader.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsPreference.h"
#include "data/clsSeriesFolder.h"
#include "gui/clsDataOpening.h"
#include "gui/clsFrameSettings.h"
#include "render/clsGLAttribute.h"
#include "seam/clsProjectName.h"
#include "seam/clsUserMessage.h"
#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr const char* kProgram = "Varnholt 3 v 0.80";
constexpr const char* kProjects = "Project file (*.vhp)|*.vhp";

wxString FolderOf(const ConfItemSTR_cls& lastFile) {
    return wxFileName(lastFile.GetValueText()).GetPath();
}

}  // namespace

FrameFiles_cls::FrameFiles_cls(wxFrame& frame, FrameContext_cls& context, UserSettings_cls& user, Views views)
    : mFrame(frame),
      mContext(context),
      mUser(user),
      mViews(std::move(views)),
      mRecovery(user.GetFolder(),
                {.isModified = [this] { return IsModified(); },
                 .getState = [this] { return mChanges; },
                 .save = [&context](const wxString& path) { return context.saveRecovery(path); },
                 .getInterval = [&context] { return context.preference.GetAutosaveInterval(); }}),
      mLook(GetLook()) {}

FrameFiles_cls::~FrameFiles_cls() = default;

bool FrameFiles_cls::IsModified() const {
    // Undone back to the empty window of the start there is nothing that could be saved.
    const bool empty = mProject.empty() && !GCUndoList.CanUndo() && GCUndoList.CanRedo();
    return mRecovered || (GCUndoList.IsModified() && !empty);
}

wxString FrameFiles_cls::GetTitle() const {
    wxString title = IsModified() ? "*" : "";
    title += mProject.empty() ? wxString("untitled") : wxFileName(mProject).GetFullName();
    const wxString data = SeriesFolder_cls::GetSource(mContext.seqCtrl.GetActive().GetFiles().GetPath());
    if (!data.empty()) title += L" \u2013 " + wxFileName(data).GetFullName();
    return title + L" \u2013 " + kProgram;
}

void FrameFiles_cls::Open(const wxString& path) {
    if (ProjectName::IsProject(path)) {
        if (MayLoseChanges()) OpenProject(path);
    } else {
        OpenData(path);
    }
}

void FrameFiles_cls::Adopt(const wxString& project) {
    mWantsLook = false;
    mProject = project;
    mRecovered = false;
    mRecovery.Clear();
    mViews.replaced();
}

void FrameFiles_cls::OpenProject(const wxString& path) {
    const wxBusyCursor busy;
    mContext.timeCtrl.ProcStopPlaying();
    const auto faults = mContext.openProject(path);
    if (!faults) {
        mUser.RemoveRecent(path);
        Adopt({});
        return;
    }
    mUser.AddRecent(path);
    mContext.timeCtrl.SetFrameNative(0);
    mContext.timeCtrl.SetStepNative(0);
    Adopt(path);
    mViews.tellFaults(*faults);
}

void FrameFiles_cls::OpenData(const wxString& path) {
    TakeData([&] { return OpenDataFile(&mFrame, mContext, path); });
}

void FrameFiles_cls::AskForData() {
    TakeData([this] { return OpenDataByDialog(&mFrame, mContext); });
}

wxString FrameFiles_cls::GetLook() const {
    wxString look;
    for (const auto& attribute : mContext.seqCtrl.GetActive().GetAttributes()) look += attribute->Serialize();
    return look;
}

void FrameFiles_cls::TakeData(const std::function<bool()>& open) {
    // Just looking at data is nothing to be saved.
    const bool blank = mProject.empty() && !IsModified();
    const bool suggested = GetLook() == mLook;
    mContext.timeCtrl.ProcStopPlaying();
    if (!open()) return;
    mContext.timeCtrl.SetFrameNative(0);
    mContext.timeCtrl.SetStepNative(0);
    if (blank) GCUndoList.MarkSaved();
    mWantsLook = blank || suggested;
    mViews.replaced();
}

void FrameFiles_cls::Finish(bool keep) {
    if (keep && IsModified()) {
        mRecovery.Save();
    } else {
        mRecovery.Clear();
    }
}

void FrameFiles_cls::CloseData() {
    mContext.timeCtrl.ProcStopPlaying();
    mContext.closeData();
    mViews.replaced();
}

void FrameFiles_cls::AskForProject() {
    wxFileDialog dialog(&mFrame, "Select a project file", FolderOf(mContext.frameSettings.mLastOpenedFileVHP),
                        {}, kProjects, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK && MayLoseChanges()) OpenProject(dialog.GetPath());
}

bool FrameFiles_cls::SaveTo(const wxString& path) {
    const wxString error = mContext.saveProject(path);
    if (!error.empty()) {
        UserMessage_cls::Tell("Error!", error);
        return false;
    }
    mUser.AddRecent(path);
    mProject = path;
    mRecovered = false;
    mRecovery.Clear();
    mFrame.SetTitle(GetTitle());
    return true;
}

bool FrameFiles_cls::Save() {
    return mProject.empty() ? SaveAs() : SaveTo(mProject);
}

bool FrameFiles_cls::SaveAs() {
    wxFileDialog dialog(&mFrame, "Save Project As", FolderOf(mContext.frameSettings.mLastOpenedFileVHP),
                        mProject.empty() ? wxString("untitled.vhp") : wxFileName(mProject).GetFullName(),
                        kProjects, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) return false;
    const wxString path = dialog.GetPath();
    return SaveTo(ProjectName::IsProject(path) ? path : path + ProjectName::kEnding);
}

bool FrameFiles_cls::MayLoseChanges() {
    if (!IsModified()) return true;
    const wxString name = mProject.empty() ? wxString("the new project") : wxFileName(mProject).GetFullName();
    wxMessageDialog dialog(&mFrame, wxString::Format("Save the changes of %s?", name), "Unsaved changes",
                           wxYES_NO | wxCANCEL | wxICON_QUESTION);
    dialog.SetExtendedMessage("Otherwise they are lost.");
    dialog.SetYesNoCancelLabels("&Save", "&Discard", "&Cancel");
    switch (dialog.ShowModal()) {
        case wxID_YES:
            return Save();
        case wxID_NO:
            return true;
        default:
            return false;
    }
}

bool FrameFiles_cls::OfferRecovery() {
    const auto left = mRecovery.FindLeft();
    if (!left) return false;
    wxMessageDialog dialog(&mFrame, "Open the work that was not saved?", "Unsaved work",
                           wxYES_NO | wxCANCEL | wxICON_QUESTION);
    dialog.SetExtendedMessage("Varnholt 3 ended without saving it. It was kept on " +
                              wxFileName(*left).GetModificationTime().Format("%Y-%m-%d %H:%M") + ".");
    dialog.SetYesNoCancelLabels("&Open", "&Discard", "&Later");
    const int answer = dialog.ShowModal();
    if (answer == wxID_NO) Recovery_cls::Discard(*left);
    if (answer != wxID_YES) return false;
    const auto faults = mContext.openProject(*left);
    if (!faults) return false;
    mViews.replaced();
    mViews.tellFaults(*faults);
    mRecovered = true;
    NoteChange();
    mRecovery.TakeOver(*left);
    mFrame.SetTitle(GetTitle());
    return true;
}
