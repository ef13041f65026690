#include "gui/clsImgSequenceGUI.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>

#include "data/clsFileSequence.h"
#include "gui/clsOneDialog.h"
#include "gui/clsWords.h"
#include "output/clsImageFile.h"
#include "output/clsPicture.h"
#include "seam/clsProjectName.h"
#include "timeline/clsTimeCtrl.h"

namespace {

constexpr const char* kTitle = "Save Pictures or Film";
constexpr int kTickMs = 100;

const std::array<wxSize, 5> kSizes = {wxSize(640, 480), wxSize(1280, 720), wxSize(1920, 1080),
                                      wxSize(2560, 1440), wxSize(3840, 2160)};

wxString Duration(long seconds) {
    return seconds < 60 ? wxString::Format("%ld s", seconds)
                        : wxString::Format("%ld min %02ld s", seconds / 60, seconds % 60);
}

}  // namespace

ImgSequenceGUI_cls& ImgSequenceGUI_cls::Open(wxWindow& parent, const Links& links) {
    auto& dialog = OneDialog::Show<ImgSequenceGUI_cls>(parent, kTitle,
                                                       [&] { return new ImgSequenceGUI_cls(parent, links); });
    if (!dialog.IsSaving()) {
        dialog.ShowRange();
        links.tell({});
    }
    return dialog;
}

ImgSequenceGUI_cls::ImgSequenceGUI_cls(wxWindow& parent, const Links& links)
    : wxDialog(&parent, wxID_ANY, kTitle, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mLinks(links),
      mTimer(this),
      mGrid(*this, [this] { SaveAll(); }) {
    AddNames();
    AddFrames();
    AddSize();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mGrid.GetSizer(), wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
    sizer->Add(MakeProgress(), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, FromDIP(12)));
    sizer->Add(MakeButtons(), wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
    SetEscapeId(wxID_CLOSE);
    SetSizerAndFit(sizer);
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTick(); });
    ShowState();
}

ImgSequenceGUI_cls::~ImgSequenceGUI_cls() {
    if (!mProject.empty()) wxRemoveFile(mProject);
}

void ImgSequenceGUI_cls::AddNames() {
    auto* row = new wxPanel(this);
    mPattern = new wxTextCtrl(row, wxID_ANY, wxGetHomeDir() + "/film%04d.png");
    mPattern->SetName("Pictures");
    mPattern->SetToolTip(
        "File names; %04d is the place of the frame's number. Ending: .png, .jpg, .tif or .bmp");
    mPattern->SetMinSize(mPattern->GetSizeFromTextSize(GetTextExtent(wxString('m', 40))));
    auto* browse = new wxButton(row, wxID_ANY, "Browse...");
    browse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseFile(); });
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(mPattern, wxSizerFlags(1).CenterVertical());
    sizer->Add(browse, wxSizerFlags().Border(wxLEFT, FromDIP(6)));
    row->SetSizer(sizer);
    mGrid.AddControl("Pictures", *row);

    mKeep = new wxCheckBox(this, wxID_ANY, "Keep pictures that are already complete");
    mKeep->SetToolTip("Goes on where an earlier run was cancelled");
    mGrid.AddControl("", *mKeep);

    mMovie = new wxTextCtrl(this, wxID_ANY, wxGetHomeDir() + "/film.mp4");
    mMovie->SetName("Film");
    mMovie->SetToolTip("Name of the film file (.mp4, .mkv, .webm, .mov or .avi); ffmpeg makes it");
    mFilm = new wxCheckBox(this, wxID_ANY, "Also make a film of the pictures");
    mFilm->SetToolTip("Hands every frame to ffmpeg as well");
    mFilm->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { ShowFilm(); });
    mGrid.AddControl("Film", *mFilm);
    mGrid.AddControl("", *mMovie);
    mRate = &mGrid.AddNumber("Frames a second", "Pace of the film", mSequence.mRate);
    ShowFilm();
}

void ImgSequenceGUI_cls::AddFrames() {
    mRange = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                          Words({"This frame", "Work area", "Whole scene", "From ... to ..."}));
    mRange->SetSelection(kWorkArea);
    mRange->SetName("Frames");
    mRange->SetToolTip("Which frames of the timeline are saved");
    mRange->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowRange(); });
    mGrid.AddControl("Frames", *mRange);
    mFirst = &mGrid.AddNumber("From", "First frame", 0);
    mLast = &mGrid.AddNumber("To", "Last frame", 0);
    mStep = &mGrid.AddNumber("Step", "Every so many frames", 1);
}

void ImgSequenceGUI_cls::AddSize() {
    wxArrayString words = Words({"Custom", "As the view"});
    for (const wxSize& size : kSizes) words.Add(wxString::Format("%d x %d", size.x, size.y));
    mSizes = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, words);
    mSizes->SetName("Size");
    mSizes->SetToolTip("Size of the pictures; it does not depend on the window");
    mSizes->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        const int choice = event.GetSelection();
        if (choice == kOwnSize) return;
        ShowSize(choice == kViewSize ? mLinks.getViewSize()
                                     : kSizes.at(static_cast<size_t>(choice - kFirstSize)));
        mSizes->SetSelection(choice);
    });
    mGrid.AddControl("Size", *mSizes);
    mWidth = &mGrid.AddNumber("Width", "Width of the pictures in pixels", mSequence.mWidth);
    mHeight = &mGrid.AddNumber("Height", "Height of the pictures in pixels", mSequence.mHeight);
    for (wxTextCtrl* text : {mWidth->text, mHeight->text}) {
        text->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
            NameSize();
            event.Skip();
        });
    }
    NameSize();
}

void ImgSequenceGUI_cls::NameSize() {
    const wxString words = mWidth->text->GetValue() + " x " + mHeight->text->GetValue();
    const int known = mSizes->FindString(words);
    mSizes->SetSelection(known == wxNOT_FOUND ? static_cast<int>(kOwnSize) : known);
}

wxSizer* ImgSequenceGUI_cls::MakeProgress() {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    mGauge = new wxGauge(this, wxID_ANY, 1);
    mStatus =
        new wxStaticText(this, wxID_ANY, "\n\n\n", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE);
    sizer->Add(mGauge, wxSizerFlags().Expand());
    sizer->Add(mStatus, wxSizerFlags(1).Expand().Border(wxTOP, FromDIP(6)));
    return sizer;
}

wxSizer* ImgSequenceGUI_cls::MakeButtons() {
    mSave = new wxButton(this, wxID_SAVE);
    mPause = new wxButton(this, wxID_ANY, "Pause");
    mCancel = new wxButton(this, wxID_STOP, "Cancel Saving");
    mCancel->SetToolTip("Stops after the pictures that are being written; what is there stays");
    mSave->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SaveAll(); });
    mPause->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { PauseOrGoOn(); });
    mCancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { mChild.Cancel(); });
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* button : {mSave, mPause, mCancel})
        sizer->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(6)));
    sizer->AddStretchSpacer();
    sizer->Add(new wxButton(this, wxID_CLOSE));
    return sizer;
}

void ImgSequenceGUI_cls::ChooseFile() {
    wxFileDialog dialog(this, "Save Pictures As", wxPathOnly(mPattern->GetValue()),
                        wxFileNameFromPath(mPattern->GetValue()), ImageFile_cls::kFilters, wxFD_SAVE);
    if (dialog.ShowModal() != wxID_OK) return;
    mPattern->SetValue(ImageFile_cls::WithEnding(dialog.GetPath(), dialog.GetFilterIndex()));
}

void ImgSequenceGUI_cls::ShowRange() {
    const TimeCtrl_cls& time = mLinks.timeCtrl;
    const FrameRange area = time.GetSettings().GetWorkArea();
    const int choice = mRange->GetSelection();
    const auto show = [](EntryGrid_cls::Entry* entry, int value, bool own) {
        entry->text->ChangeValue(wxString::Format("%d", value));
        entry->before = entry->text->GetValue();
        entry->text->Enable(own);
    };
    mSequence.mFirst = choice == kThisFrame ? time.GetFrame() : choice == kWholeScene ? 0 : area.first;
    mSequence.mLast = choice == kThisFrame    ? time.GetFrame()
                      : choice == kWholeScene ? time.GetMaxFrame()
                                              : area.last;
    show(mFirst, mSequence.mFirst, choice == kOwnRange);
    show(mLast, mSequence.mLast, choice == kOwnRange);
    show(mStep, mSequence.mStep, choice != kThisFrame);
}

void ImgSequenceGUI_cls::ShowFilm() {
    mMovie->Enable(mFilm->GetValue());
    mRate->text->Enable(mFilm->GetValue());
}

void ImgSequenceGUI_cls::ShowSize(wxSize size) {
    mWidth->text->SetValue(wxString::Format("%d", size.x));
    mHeight->text->SetValue(wxString::Format("%d", size.y));
}

bool ImgSequenceGUI_cls::ReadEntries() {
    const double end = mLinks.timeCtrl.GetMaxFrame();
    const auto read = [this](EntryGrid_cls::Entry* entry, double lowest, double highest, int& value) {
        const auto number = mGrid.Read(*entry, {.min = lowest, .max = highest, .whole = true});
        if (number) value = static_cast<int>(*number);
        // What was accepted is what the next change is measured against.
        if (number) entry->before = entry->text->GetValue();
    };
    read(mFirst, 0, end, mSequence.mFirst);
    read(mLast, mSequence.mFirst, end, mSequence.mLast);
    read(mStep, 1, std::max(end, 1.0), mSequence.mStep);
    if (mFilm->GetValue()) read(mRate, 1, Movie_cls::kHighestRate, mSequence.mRate);
    read(mWidth, 1, Picture_cls::kLargestSide, mSequence.mWidth);
    read(mHeight, 1, Picture_cls::kLargestSide, mSequence.mHeight);
    mSequence.mPattern = ImageFile_cls::WithEnding(mPattern->GetValue());
    mSequence.mMovie = mFilm->GetValue() ? mMovie->GetValue() : wxString();
    mSequence.mResume = mKeep->GetValue();
    return mGrid.TakeGood();
}

void ImgSequenceGUI_cls::SaveAll() {
    if (IsSaving() || !ReadEntries() || !mSequence.EnsureNumbered()) return;
    mPattern->SetValue(mSequence.mPattern);
    if (!mSequence.MayReplace()) return;
    if (mProject.empty()) {
        mProject = wxFileName::CreateTempFileName("varnholt3-") + ProjectName::kEnding;
        wxRemoveFile(mProject.BeforeLast('.'));
    }
    if (!mLinks.saveCopy(mProject)) {
        ShowStatus(mProject + ": the scene could not be written");
        return;
    }
    if (!mChild.Start(mLinks.program, mSequence.MakeArguments(mProject, mLinks.getPanel()))) {
        ShowStatus(mLinks.program + ": the program could not be started");
        return;
    }
    // Save is about to be disabled, and after a question the keyboard would come back to it.
    mPattern->SetFocus();
    mWatch.Start();
    mWasRunning = true;
    mTimer.Start(kTickMs);
    ShowState();
}

void ImgSequenceGUI_cls::PauseOrGoOn() {
    mChild.Pause(!mChild.IsPaused());
    mChild.IsPaused() ? mWatch.Pause() : mWatch.Resume();
    ShowState();
}

void ImgSequenceGUI_cls::OnTick() {
    mChild.Poll();
    ShowState();
    if (IsSaving()) return;
    mTimer.Stop();
    mWasRunning = false;
}

wxString ImgSequenceGUI_cls::DescribeProgress() const {
    const int frames = mSequence.GetFrames();
    const int done = std::min(mChild.GetDone(), frames);
    const wxString text = wxString::Format("%d of %d", done, frames);
    if (mChild.IsPaused()) return text + ", paused";
    if (done == 0) return text;
    return text + ", about " + Duration(mWatch.Time() * (frames - done) / done / 1000) + " left";
}

wxString ImgSequenceGUI_cls::DescribeEnd() const {
    const int frames = mSequence.GetFrames();
    if (mChild.IsDone())
        return wxString::Format("%d of %d saved in %s.", mChild.GetDone(), frames,
                                Duration(mWatch.Time() / 1000));
    return wxString::Format(
        mChild.IsCancelled() ? "Cancelled after %d of %d pictures." : "Failed after %d of %d pictures.",
        mChild.GetDone(), frames);
}

void ImgSequenceGUI_cls::ShowStatus(const wxString& text) {
    if (text == mStatusText) return;
    mStatusText = text;
    mStatus->SetLabelText(text);
    mStatus->Wrap(mGauge->GetSize().x);
    mStatus->SetToolTip(text);
}

void ImgSequenceGUI_cls::ShowState() {
    const bool running = IsSaving();
    // Keys go nowhere from a button that is disabled: Escape has to close the dialog.
    const wxWindow* focus = FindFocus();
    if (focus && (running ? focus == mSave : focus == mPause || focus == mCancel)) mPattern->SetFocus();
    mSave->Enable(!running);
    mPause->Enable(running);
    mCancel->Enable(running);
    mPause->SetLabel(running && mChild.IsPaused() ? "Go On" : "Pause");
    if (!running && !mWasRunning) return;

    const int frames = mSequence.GetFrames();
    mGauge->SetRange(frames);
    mGauge->SetValue(std::min(mChild.GetDone(), frames));
    wxString text = running ? DescribeProgress() : DescribeEnd();
    mLinks.tell(running ? "saving " + text : IsShown() ? wxString() : text);
    text += "\n" + (mChild.GetMessages().empty() ? mChild.GetFile() : mChild.GetMessages());
    ShowStatus(text);
}
