#include "gui/clsViewToolbar.h"

#include <wx/bmpbuttn.h>
#include <wx/choice.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

#include <array>

#include "gui/clsIcons.h"
#include "gui/clsNumberField.h"
#include "gui/clsWords.h"
#include "render/clsPanelSettings.h"

namespace {

/// Whose camera a view shows; the last three are places to look from, not states.
enum WhoseCamera : int { kPath, kOwn, kFront, kSide, kTop };
const std::array<const char*, 5> kWhose = {"Camera", "Free", "Front", "Side", "Top"};

constexpr int kAngleCharacters = 5;
constexpr int kMarkHeight = 2;
constexpr int kButtonGap = 6;

}  // namespace

ViewToolbar_cls::ViewToolbar_cls(wxWindow* parent, PanelSettings_cls& panel, PanelCamera_cls& camera)
    : wxPanel(parent), mPanel(panel), mCamera(camera), mRow(new wxBoxSizer(wxHORIZONTAL)) {
    mRow->AddSpacer(FromDIP(4));
    AddGeometry();
    AddCameraChoice();
    AddAngle();
    AddButton("fit", "Fit", "Show all data in this view (F)", [this] { mCamera.FitToData(); });
    AddButton("key-add", "Key", "Key the camera as this view shows it at this frame (K)",
              [this] { mCamera.Key(); });
    mRow->AddStretchSpacer();
    AddSwitch("message", "Show/Hide Message", mPanel.mShowMessage);
    AddSwitch("axes", "Show/Hide Item", mPanel.mShowItems);
    AddSwitch("grid", "Show/Hide Grid", mPanel.mShowGrid);
    AddSwitch("particles", "Show/Hide Data", mPanel.mShowData);
    mRow->AddSpacer(FromDIP(4));
    // As high as it is with all of them, however few there is room for.
    mRow->SetMinSize(wxSize(0, mRow->CalcMin().y));

    mMark = new wxPanel(this);
    mMark->SetMinSize(wxSize(1, FromDIP(kMarkHeight)));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(mRow, 1, wxEXPAND);
    column->Add(mMark, 0, wxEXPAND);
    SetSizer(column);
    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { MakeRoom(); });
    ShowSettings(kAll);
}

void ViewToolbar_cls::MakeRoom() {
    const std::array<wxWindow*, 3> optional = {mAngle, mWhose, mGeometry};
    for (wxWindow* control : optional) mRow->Show(control, true);
    for (wxWindow* control : optional) {
        if (mRow->CalcMin().x <= GetClientSize().x) break;
        mRow->Show(control, false);
    }
    Layout();
}

void ViewToolbar_cls::AddGeometry() {
    mGeometry = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                             Words(PanelSettings_cls::kGeometryNames), 0, wxDefaultValidator, "Geometry");
    mGeometry->SetToolTip("Geometry: how space is projected onto the view");
    mGeometry->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        BindAs<unsigned int>("Geometry", mPanel.mGeometry.mValue)
            .set(static_cast<unsigned int>(event.GetSelection()));
    });
    mRow->Add(mGeometry, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(4)));
}

void ViewToolbar_cls::AddCameraChoice() {
    mWhose = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, Words(kWhose), 0,
                          wxDefaultValidator, "Camera of View");
    mWhose->SetToolTip(
        "Camera: this view shows and moves the scene's camera, as films do.\n"
        "Free: it has a view of its own, here from the front, the side or the top.");
    mWhose->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) { ChooseCamera(event.GetSelection()); });
    mRow->Add(mWhose, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(4)));
}

void ViewToolbar_cls::ChooseCamera(int choice) {
    const UndoBlock_cls block("View");
    BindAs<unsigned int>("View", mPanel.mDisplayMode.mValue)
        .set(static_cast<unsigned int>(choice == kPath ? DisplayMode::kFollowsPath : DisplayMode::kFree));
    if (choice == kFront) mCamera.LookFrom(PanelCamera_cls::Side::Front);
    if (choice == kSide) mCamera.LookFrom(PanelCamera_cls::Side::Side);
    if (choice == kTop) mCamera.LookFrom(PanelCamera_cls::Side::Top);
}

void ViewToolbar_cls::AddAngle() {
    const NumberLimits_cls limits{.min = 0.1, .max = 360.0, .unit = L"\u00B0", .step = 1.0};
    mAngle = new NumberField_cls(
        this, "View Angle",
        "View angle in degrees across the view's shorter side; perspective views "
        "show at most 120",
        limits,
        {[this] { return mCamera.Get().mAngle; }, [this](const double& angle) { mCamera.SetAngle(angle); }});
    wxTextCtrl& text = mAngle->GetText();
    text.SetMinSize(text.GetSizeFromTextSize(text.GetTextExtent(wxString('0', kAngleCharacters))));
    mRow->Add(mAngle, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(4)));
}

void ViewToolbar_cls::AddButton(const wxString& icon, const wxString& name, const wxString& tip,
                                std::function<void()> action) {
    auto* button = new wxBitmapButton(this, wxID_ANY, Icons_cls::Get(icon, *this), wxDefaultPosition,
                                      wxDefaultSize, wxBORDER_NONE | wxBU_EXACTFIT);
    button->SetToolTip(tip);
    button->SetName(name);
    button->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
    mRow->Add(button, wxSizerFlags().CenterVertical().Border(wxLEFT, FromDIP(kButtonGap)));
}

void ViewToolbar_cls::AddSwitch(const wxString& icon, const wxString& tip, ConfItemBOOL_cls& setting) {
    auto* button = new wxToggleButton(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                      wxBORDER_NONE | wxBU_EXACTFIT);
    button->SetBitmap(Icons_cls::Get(icon, *this));
    button->SetToolTip(tip);
    button->SetName(tip);
    button->Bind(wxEVT_TOGGLEBUTTON, [tip, &setting](wxCommandEvent& event) {
        BindAs<bool>(tip, setting.mValue).set(event.IsChecked());
    });
    mRow->Add(button, wxSizerFlags().CenterVertical().Border(wxLEFT, FromDIP(kButtonGap)));
    mSwitches.push_back({button, &setting});
}

void ViewToolbar_cls::ShowSettings(std::uint64_t) {
    const auto geometry = static_cast<int>(mPanel.mGeometry.mValue);
    mGeometry->SetSelection(geometry < static_cast<int>(mGeometry->GetCount()) ? geometry : wxNOT_FOUND);
    mWhose->SetSelection(mPanel.mDisplayMode.mValue == 0 ? kPath : kOwn);
    mAngle->RefreshFromModel();
    for (const Switch& item : mSwitches) item.button->SetValue(item.setting->mValue);
}

void ViewToolbar_cls::ShowActive(bool active) {
    mMark->SetBackgroundColour(active ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)
                                      : GetBackgroundColour());
    mMark->Refresh();
}
