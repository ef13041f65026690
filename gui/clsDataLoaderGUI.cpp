#include "gui/clsDataLoaderGUI.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/translation.h>

#include <algorithm>

#include "data/clsSplitPath.h"
#include "gui/clsFileDrop.h"
#include "gui/clsFirstColors.h"
#include "gui/clsGrammarList.h"
#include "gui/clsPreviewGrid.h"
#include "gui/clsScreenRoom.h"
#include "gui/clsSettingsPage.h"
#include "gui/clsSpacing.h"
#include "gui/clsWords.h"
#include "render/clsColorCurve.h"

namespace {

constexpr int kLoaderWidth = 1200;
constexpr int kLoaderHeight = 740;
constexpr int kSettingsWidth = 390;

/// A value of the draft: nothing to undo before the data are opened.
template <class Shown, class Stored>
Setting_cls<Shown> BindDraft(Stored& stored) {
    return {[&stored] { return static_cast<Shown>(stored); },
            [&stored](const Shown& value) { stored = static_cast<Stored>(value); }};
}

}  // namespace

DataLoaderGUI_cls::DataLoaderGUI_cls(wxWindow* parent, LoadDraft_cls& draft)
    : wxDialog(parent, wxID_ANY, _(kTitle), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      mDraft(draft) {
    auto* fileRows = MakeFileRows();
    auto* choices = MakeLayoutChoices();
    auto* left = new wxBoxSizer(wxVERTICAL);
    left->Add(MakeLists(), wxSizerFlags().Expand());
    mPreview = new PreviewGrid_cls(this);
    left->Add(mPreview, wxSizerFlags(1).Expand().Border(wxTOP, FromDIP(Spacing::kDialog)));
    mSettings = MakeSettings();
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(left, wxSizerFlags(1).Expand());
    row->Add(mSettings, wxSizerFlags().Expand().Border(wxLEFT, FromDIP(Spacing::kDialog)));

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    const auto border = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(Spacing::kDialog));
    sizer->Add(fileRows, border);
    sizer->Add(choices, border);
    sizer->Add(row, wxSizerFlags(border).Proportion(1));
    sizer->Add(MakeButtons(), wxSizerFlags().Expand().Border(wxALL, FromDIP(Spacing::kDialog)));
    SetSizer(sizer);
    SetSize(ScreenRoom::Limit(*this, FromDIP(wxSize(kLoaderWidth, kLoaderHeight))));
    SetDropTarget(new FileDrop_cls([this](const wxString& file) { SetFile(file); }));
    Bind(wxEVT_BUTTON, &DataLoaderGUI_cls::TryToOpen, this, wxID_OK);
    ShowDraft();
    FocusNext();
}

wxSizer* DataLoaderGUI_cls::MakeFileRows() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    mFile = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER,
                           wxDefaultValidator, "File");
    mFile->SetToolTip(
        _("The first file of the series: type or paste its path. Files may also be dropped on this window."));
    mFile->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { mOpen->Enable(wxFileExists(GetTypedFile())); });
    mFile->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) {
        TakeTypedFile();
        if (mDraft.IsFileGood()) FocusNext();
    });
    mFile->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        TakeTypedFile();
        event.Skip();
    });
    mChoose = new wxButton(this, wxID_OPEN, _("Choose &File..."));
    mChoose->SetToolTip(_("Looks for the first file of the series"));
    mChoose->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseFile(); });
    row->Add(mFile, wxSizerFlags(1).CenterVertical());
    row->Add(mChoose, wxSizerFlags().Border(wxLEFT, FromDIP(Spacing::kDialog)));

    mWords = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    mAsSeries = new wxCheckBox(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                               "Open as series");
    mAsSeries->SetToolTip(
        _("Opens the files one after the other, through links that are numbered in order, or the steps of "
          "the file, "
          "copied into files of their own. Both lie in your cache directory; the data stay as they are."));
    mAsSeries->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
        mDraft.SetAsSeries(mAsSeries->IsChecked());
        LayoutChanged();
    });
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(row, wxSizerFlags().Expand());
    rows->Add(mWords, wxSizerFlags().Expand().Border(wxTOP, FromDIP(Spacing::kDialog / 2)));
    rows->Add(mAsSeries, wxSizerFlags().Expand().Border(wxTOP, FromDIP(Spacing::kDialog / 2)));
    return rows;
}

wxSizer* DataLoaderGUI_cls::MakeLayoutChoices() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto addChoice = [&](const wxString& label, const wxString& tooltip, int proportion) {
        if (!row->IsEmpty()) row->AddSpacer(FromDIP(2 * Spacing::kDialog));
        row->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CenterVertical());
        auto* choice =
            new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, {}, 0, wxDefaultValidator, label);
        choice->SetToolTip(tooltip);
        row->Add(choice, wxSizerFlags(proportion).Border(wxLEFT, FromDIP(Spacing::kDialog)));
        return choice;
    };
    mPreset = addChoice(_("Preset"),
                        _("Settings for a kind of file: layout, interpolation and particle number"), 1);
    mPreset->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        const auto chosen = static_cast<size_t>(event.GetSelection());
        if (chosen < mDraft.GetPresets().size()) mDraft.ApplyPreset(chosen);
        ShowLayout();
    });
    mDataType = addChoice(_("Data Type"), _("Binary files are read in the byte order of this machine"), 0);
    mDataType->Append(Words({_("Binary"), _("Text")}));
    mDataType->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        mDraft.GetLoader().SetText(event.GetSelection() == GrammerBase_cls::kText);
        LayoutChanged();
    });
    return row;
}

wxSizer* DataLoaderGUI_cls::MakeLists() {
    using Part = GrammarList_cls::Part;
    mHeader = new GrammarList_cls(this, Part::Header, [this](const std::vector<int>& codes) {
        mDraft.GetLoader().SetHeaderGrammer(codes.empty() ? std::vector<int>{LoadPreset_cls::kNoHeader}
                                                          : codes);
        LayoutChanged();
    });
    mBody = new GrammarList_cls(this, Part::Body, [this](const std::vector<int>& codes) {
        mDraft.GetLoader().SetBodyGrammer(codes);
        LayoutChanged();
    });
    auto* lists = new wxBoxSizer(wxHORIZONTAL);
    lists->Add(mHeader, wxSizerFlags(1).Expand());
    lists->Add(mBody, wxSizerFlags(1).Expand().Border(wxLEFT, FromDIP(Spacing::kDialog)));

    return lists;
}

SettingsPage_cls* DataLoaderGUI_cls::MakeSettings() {
    auto* page = new SettingsPage_cls(this);
    DataLoader_cls& loader = mDraft.GetLoader();
    page->AddChoice(
        _("Interpolation"),
        _("How particles move between two snapshots: by the difference of their positions, by the "
          "velocities in the files, or not at all"),
        Words({_("Linear"), _("Hermite"), _("No Interpolate")}),
        {[&loader] { return loader.mInterpolateType.mValue; },
         [this, &loader](const unsigned int& type) {
             loader.mInterpolateType.mValue = type;
             ShowLayout();
         }});
    page->AddChoice(
        _("Particle Number"),
        _("How a particle is found in the next snapshot: by its place in the file, by its ID where the "
          "order or the number changes, or by its ID after sorting"),
        Words({_("Constant"), _("Variable"), _("Sort by ID")}),
        BindDraft<unsigned int>(loader.mVariableNumber.mValue));
    mColors = &page->AddChoice(
        _("Colors"),
        _("What becomes of the colors: one for each type, or by the particles' values, with the curve's "
          "Min and Max from the first snapshot"),
        Words({_("As they are"), _("One for each type"), {}}), BindDraft<unsigned int>(mDraft.mColors));
    mBox = &page->AddCheck(
        _("Periodic box"),
        _("Takes the periodic box that the file tells: particles that leave it on one side do not "
          "fly through it"),
        // Where the file tells none the wish stays, for the next file.
        {[this] { return mDraft.mUseBox && mDraft.GetBox().has_value(); },
         [this](bool use) { mDraft.mUseBox = use; }});
    AddTransforms(*page);
    page->SetMinSize(wxSize(std::max(FromDIP(kSettingsWidth), page->GetBestSize().x), -1));
    return page;
}

void DataLoaderGUI_cls::AddTransforms(SettingsPage_cls& page) {
    DataLoader_cls& loader = mDraft.GetLoader();
    page.BeginGroup(_("After reading"));
    std::vector<Setting_cls<double>> translate;
    for (size_t axis = 0; axis < 3; ++axis)
        translate.push_back(BindDraft<double>(loader.mTranslate.mValue[axis]));
    page.AddNumbers(_("Translate"), _("Added to every position, x, y and z in the data's length unit"), {},
                    translate);
    page.AddNumber(_("Scaling"), _("Multiplies positions, velocities and radii; 0 leaves them as they are"),
                   {}, BindDraft<double>(loader.mScale.mValue));
    page.AddNumber(_("Modify Value1"), _("Multiplies value1; 0 leaves it as it is"), {},
                   BindDraft<double>(loader.mScaleValue1.mValue));
    page.AddCheck(_("Take log10"),
                  _("Replaces value1 by its base-10 logarithm; values at or below 0 become 0"),
                  BindDraft<bool>(loader.mLogarithm.mValue));
    auto* reset = new wxButton(&page, wxID_ANY, _("&Reset"));
    reset->SetToolTip(_("Translate 0, scalings 1, no logarithm"));
    reset->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        mDraft.GetLoader().SetToDefault();
        mSettings->RefreshFromModel();
    });
    page.AddWindow({}, reset);
}

wxSizer* DataLoaderGUI_cls::MakeButtons() {
    auto* buttons = new wxStdDialogButtonSizer;
    mOpen = new wxButton(this, wxID_OK, _("&Open"));
    mOpen->SetToolTip(_("Opens the data with these settings, as one step that Undo takes back"));
    buttons->AddButton(mOpen);
    buttons->AddButton(new wxButton(this, wxID_CANCEL));
    buttons->Realize();
    mOpen->SetDefault();
    return buttons;
}

void DataLoaderGUI_cls::ChooseFile() {
    if (!mDraft.GetLoader().CheckGrammer()) return;
    const SplitPath_cls path(mDraft.GetFile());
    wxFileDialog dialog(this, _("Coose first file"), path.mDirectory, path.mName + path.mExtension,
                        wxFileSelectorDefaultWildcardStr, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK) SetFile(dialog.GetPath());
}

void DataLoaderGUI_cls::SetFile(const wxString& path) {
    mDraft.SetFile(path);
    ShowDraft();
    FocusNext();
}

wxString DataLoaderGUI_cls::GetTypedFile() const {
    const wxString typed = mFile->GetValue().Strip(wxString::both);
    if (typed.empty()) return {};
    wxFileName name(typed);
    name.Normalize(wxPATH_NORM_TILDE | wxPATH_NORM_ABSOLUTE);
    return name.GetFullPath();
}

void DataLoaderGUI_cls::TakeTypedFile() {
    if (!mFile->IsModified()) return;
    mFile->DiscardEdits();
    mDraft.SetFile(GetTypedFile());
    ShowDraft();
}

void DataLoaderGUI_cls::FocusNext() {
    (mDraft.IsFileGood() ? mOpen : mChoose)->SetFocus();
}

void DataLoaderGUI_cls::ShowWords(wxStaticText& text, const wxString& words) {
    text.SetLabelText(words);
    text.SetToolTip(words);
}

void DataLoaderGUI_cls::ShowDraft() {
    mFile->ChangeValue(mDraft.GetFile());
    mFile->SetInsertionPointEnd();
    wxString words = mDraft.GetFile().empty() ? _("No file is chosen.") : mDraft.GetWords();
    // A series that is not opened as it stands is described by its switch.
    if (mDraft.IsFileGood() && !mDraft.CanBeSeries() && mDraft.GetSeries().mNames.size() > 1)
        words += "; " + mDraft.DescribeSeries();
    const bool wrong = !mDraft.GetFile().empty() && !mDraft.IsFileGood();
    mWords->SetForegroundColour(wrong ? PreviewGrid_cls::Red() : wxColour());
    ShowWords(*mWords, words);
    mAsSeries->Show(mDraft.IsFileGood() && mDraft.CanBeSeries());
    mAsSeries->SetValue(mDraft.IsAsSeries());
    mAsSeries->SetLabelText((mDraft.HasManySteps() ? _("Split into a series: ") : _("Open as a series: ")) +
                            (mDraft.IsFileGood() ? mDraft.DescribeSeries() : wxString()));
    mOpen->Enable(mDraft.IsFileGood());
    ShowLayout();
}

void DataLoaderGUI_cls::ShowLayout() {
    const DataLoader_cls& loader = mDraft.GetLoader();
    wxArrayString names;
    int chosen = wxNOT_FOUND;
    for (const LoadPreset_cls& preset : mDraft.GetPresets()) {
        if (chosen == wxNOT_FOUND && preset.IsLayoutOf(loader)) chosen = static_cast<int>(names.size());
        names.Add(preset.mName);
    }
    if (chosen == wxNOT_FOUND) {
        chosen = static_cast<int>(names.size());
        names.Add(_("Own layout"));
    }
    mPreset->Set(names);
    mPreset->SetSelection(chosen);
    mDataType->SetSelection(loader.IsText() ? GrammerBase_cls::kText : GrammerBase_cls::kBinary);
    const auto head = loader.GetHeaderGrammer();
    const auto body = loader.GetBodyGrammer();
    mHeader->Show({head.begin(), head.end()}, loader.IsText());
    mBody->Show({body.begin(), body.end()}, loader.IsText());
    mColors->SetString(
        LoadDraft_cls::kColorByValue,
        wxString::Format(_("By %s, from Min to Max"), ColorCurve_cls::GetDependName(FirstValue(loader))));
    mSettings->RefreshFromModel();
    mBox->Enable(mDraft.GetBox().has_value());
    const bool still = loader.mInterpolateType.mValue == DataLoader_cls::kHermite &&
                       std::find(body.begin(), body.end(), GrammerBase_cls::kVelocity) == body.end();
    mPreview->Show(mDraft.GetPreview(), still ? _("No velocities in the layout: with Hermite, particles "
                                                  "stand still between snapshots")
                                              : wxString());
    Layout();
}

void DataLoaderGUI_cls::LayoutChanged() {
    mDraft.Update();
    ShowLayout();
}

void DataLoaderGUI_cls::TryToOpen(wxCommandEvent& event) {
    TakeTypedFile();
    if (!mDraft.IsFileGood() || !mDraft.GetLoader().CheckGrammer()) return;
    event.Skip();
}
