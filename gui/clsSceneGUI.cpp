#include "gui/clsSceneGUI.h"

#include <wx/button.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr double kLongestScene = 1e6;  // frames; more than any film has

}  // namespace

SceneGUI_cls::SceneGUI_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl, int snapshots)
    : wxDialog(parent, wxID_ANY, "Scene", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mTimeCtrl(timeCtrl),
      mGrid(*this, [this] { Accept(); }) {
    const FrameRange area = timeCtrl.GetSettings().GetWorkArea();
    mLength = &mGrid.AddNumber("Scene Length", "The last frame of the scene; the first one is 0",
                               timeCtrl.GetMaxFrame());
    mFirst = &mGrid.AddNumber("Work Area", "The first frame that is played and rendered", area.first);
    mLast = &mGrid.AddNumber("to", "The last frame that is played and rendered", area.last);

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mGrid.GetSizer(), wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
    if (snapshots > 1) AddDataButton(*sizer, snapshots);

    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, "Keys, when the length changes");
    auto* choices = new wxFlexGridSizer(2, FromDIP(wxSize(14, 6)));
    mDoNotRemap = AddChoice(*choices, "do not remap",
                            "keys keep their share of the scene: the animation stretches with it", true);
    mDoRemap = AddChoice(*choices, "do remap", "keys are moved so that each stays at its frame");
    mKeyRemap =
        AddChoice(*choices, "key remap", "the animation stretches, but data pass at the speed they had");
    box->Add(choices, wxSizerFlags().Border(wxALL, FromDIP(6)));
    sizer->Add(box, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(12)));
    sizer->AddStretchSpacer();
    sizer->Add(CreateButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
    SetSizerAndFit(sizer);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); }, wxID_OK);
    mLength->text->SetFocus();
    mLength->text->SelectAll();
}

void SceneGUI_cls::AddDataButton(wxSizer& sizer, int snapshots) {
    auto* button = new wxButton(this, wxID_ANY, wxString::Format("As Long as the Data (%d)", snapshots - 1));
    button->SetToolTip("Frame n shows snapshot n, from the first to the last");
    button->Bind(wxEVT_BUTTON, [this, snapshots](wxCommandEvent&) {
        mLength->text->SetValue(wxString::Format("%d", snapshots - 1));
    });
    sizer.Add(button, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(12)));
}

wxRadioButton* SceneGUI_cls::AddChoice(wxSizer& sizer, const wxString& label, const wxString& meaning,
                                       bool first) {
    auto* button =
        new wxRadioButton(this, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, first ? wxRB_GROUP : 0);
    button->SetToolTip(meaning);
    button->SetValue(first);
    sizer.Add(button, wxSizerFlags().CenterVertical());
    sizer.Add(new wxStaticText(this, wxID_ANY, meaning), wxSizerFlags().CenterVertical());
    return button;
}

void SceneGUI_cls::Accept() {
    if (Apply()) EndModal(wxID_OK);
}

bool SceneGUI_cls::Apply() {
    const FrameRange area = mTimeCtrl.GetSettings().GetWorkArea();
    const double length = mGrid.Read(*mLength, {.min = 0.0, .max = kLongestScene, .whole = true})
                              .value_or(mTimeCtrl.GetMaxFrame());
    // An end that is left alone goes where the new length takes it.
    const std::optional<double> last = mGrid.Read(*mLast, {.min = 0.0, .max = length, .whole = true});
    const double highest = last.value_or(std::min<double>(area.last, length));
    const std::optional<double> first = mGrid.Read(*mFirst, {.min = 0.0, .max = highest, .whole = true});
    if (!mGrid.TakeGood()) return false;

    using KeyRemap = TimeCtrl_cls::KeyRemap;
    const KeyRemap keys = mDoRemap->GetValue()    ? KeyRemap::DoRemap
                          : mKeyRemap->GetValue() ? KeyRemap::KeyRemap
                                                  : KeyRemap::DoNotRemap;
    const UndoBlock_cls block("Scene");
    mTimeCtrl.SetMaxFrameCommand(static_cast<int>(length), keys);
    // Either end is limited by the other: room first.
    if (first) mTimeCtrl.SetWorkAreaMinCommand(0);
    if (last) mTimeCtrl.SetWorkAreaMaxCommand(static_cast<int>(*last));
    if (first) mTimeCtrl.SetWorkAreaMinCommand(static_cast<int>(*first));
    return true;
}
