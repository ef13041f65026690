#include "gui/clsSettingsPage.h"
#include "gui/clsSpacing.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/clrpicker.h>
#include <wx/filedlg.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/slider.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

namespace {

constexpr int kScrollStep = 12;

wxColour ToColour(const Color4& color) {
    const auto byte = [](float channel) {
        return static_cast<unsigned char>(std::clamp(channel, 0.0F, 1.0F) * 255.0F + 0.5F);
    };
    return {byte(color[0]), byte(color[1]), byte(color[2])};
}

}  // namespace

SettingsPage_cls::SettingsPage_cls(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL) {
    SetSizer(new wxBoxSizer(wxHORIZONTAL));
    BeginColumn();
    SetScrollRate(0, FromDIP(kScrollStep));
    Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
        event.Skip();
        if (event.GetWindow() != this) ScrollTo(*event.GetWindow());
    });
}

wxFlexGridSizer& SettingsPage_cls::Grid() {
    if (!mGrid) {
        mGrid = new wxFlexGridSizer(2, FromDIP(wxSize(Spacing::kRow, Spacing::kRow)));
        mGrid->AddGrowableCol(1);
        mColumn->Add(mGrid, wxSizerFlags().Expand().Border(wxALL, FromDIP(Spacing::kRow)));
    }
    return *mGrid;
}

void SettingsPage_cls::BeginColumn() {
    mColumn = new wxBoxSizer(wxVERTICAL);
    GetSizer()->Add(mColumn, wxSizerFlags(1).Expand());
    mGrid = nullptr;
    mLabels.clear();
}

void SettingsPage_cls::BeginGroup(const wxString& heading) {
    auto* text = new wxStaticText(this, wxID_ANY, heading);
    text->SetFont(text->GetFont().Bold());
    // The toolkit measures a hidden page's heading before it is bold: given all of the column, none is cut.
    mColumn->Add(text, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Spacing::kRow)));
    mGrid = nullptr;
}

void SettingsPage_cls::AddLabel(const wxString& label) {
    mLabels.push_back(new wxStaticText(this, wxID_ANY, label));
    Grid().Add(mLabels.back(), wxSizerFlags().CenterVertical());
    int width = 0;
    for (const wxStaticText* text : mLabels) width = std::max(width, text->GetBestSize().x);
    for (wxStaticText* text : mLabels) text->SetMinSize(wxSize(width, -1));
}

bool SettingsPage_cls::Layout() {
    const wxSize size = GetVirtualSize();
    GetSizer()->SetDimension(CalcScrolledPosition(wxPoint(0, 0)),
                             wxSize(std::max(size.x, GetSizer()->GetMinSize().x), size.y));
    return true;
}

wxSize SettingsPage_cls::DoGetBestSize() const {
    return GetSizer()->GetMinSize() + wxSize(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this), 0);
}

void SettingsPage_cls::AddControl(wxWindow* control, bool stretch) {
    const wxSizerFlags flags = wxSizerFlags().CenterVertical();
    Grid().Add(control, stretch ? wxSizerFlags(flags).Expand() : flags);
}

wxChoice& SettingsPage_cls::AddChoice(const wxString& label, const wxString& tooltip,
                                      const wxArrayString& names, const Setting_cls<unsigned int>& setting) {
    AddLabel(label);
    auto* choice =
        new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, names, 0, wxDefaultValidator, label);
    choice->SetToolTip(tooltip);
    ScrollByWheel(*choice);
    choice->Bind(wxEVT_CHOICE, [setting](wxCommandEvent& event) {
        setting.set(static_cast<unsigned int>(event.GetSelection()));
    });
    AddControl(choice, true);
    AddRefresher([choice, setting] {
        // A number beyond the list, which a project may hold, selects nothing.
        const unsigned int value = setting.get();
        choice->SetSelection(value < choice->GetCount() ? static_cast<int>(value) : wxNOT_FOUND);
    });
    return *choice;
}

NumberField_cls& SettingsPage_cls::AddNumber(const wxString& label, const wxString& tooltip,
                                             const NumberLimits_cls& limits,
                                             const Setting_cls<double>& setting) {
    AddLabel(label);
    auto* field = new NumberField_cls(this, label, tooltip, limits, setting);
    AddControl(field, true);
    AddRefresher([field] { field->RefreshFromModel(); });
    return *field;
}

std::vector<NumberField_cls*> SettingsPage_cls::AddNumbers(const wxString& label, const wxString& tooltip,
                                                           const NumberLimits_cls& limits,
                                                           const std::vector<Setting_cls<double>>& settings) {
    AddLabel(label);
    std::vector<NumberField_cls*> fields;
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (size_t i = 0; i < settings.size(); ++i) {
        const bool last = i + 1 == settings.size();
        NumberLimits_cls own = limits;
        if (!last) own.unit.clear();
        auto* field =
            new NumberField_cls(this, wxString::Format("%s %zu", label, i), tooltip, own, settings[i]);
        row->Add(field, wxSizerFlags(last ? 1 : 0).CenterVertical());
        fields.push_back(field);
        AddRefresher([field] { field->RefreshFromModel(); });
    }
    Grid().Add(row, wxSizerFlags().Expand());
    return fields;
}

SliderField_cls& SettingsPage_cls::AddSlider(const wxString& label, const wxString& tooltip,
                                             const SliderField_cls::Range& range,
                                             const NumberLimits_cls& limits,
                                             const Setting_cls<double>& setting) {
    AddLabel(label);
    auto* field = new SliderField_cls(this, label, tooltip, range, limits, setting);
    ScrollByWheel(field->GetSlider());
    AddControl(field, true);
    AddRefresher([field] { field->RefreshFromModel(); });
    return *field;
}

wxCheckBox& SettingsPage_cls::AddCheck(const wxString& label, const wxString& tooltip,
                                       const Setting_cls<bool>& setting) {
    AddLabel({});
    auto* check =
        new wxCheckBox(this, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, label);
    check->SetToolTip(tooltip);
    check->Bind(wxEVT_CHECKBOX, [setting](wxCommandEvent& event) { setting.set(event.IsChecked()); });
    AddControl(check, true);
    AddRefresher([check, setting] { check->SetValue(setting.get()); });
    return *check;
}

void SettingsPage_cls::AddColor(const wxString& label, const wxString& tooltip,
                                const Setting_cls<Color4>& setting) {
    AddLabel(label);
    auto* picker = new wxColourPickerCtrl(this, wxID_ANY, *wxBLACK, wxDefaultPosition, wxDefaultSize,
                                          wxCLRP_DEFAULT_STYLE, wxDefaultValidator, label);
    picker->SetToolTip(tooltip);
    picker->Bind(wxEVT_COLOURPICKER_CHANGED, [setting](wxColourPickerEvent& event) {
        const wxColour colour = event.GetColour();
        const auto channel = [](unsigned char byte) { return static_cast<float>(byte) / 255.0F; };
        setting.set(
            {channel(colour.Red()), channel(colour.Green()), channel(colour.Blue()), setting.get()[3]});
    });
    AddControl(picker, false);
    AddRefresher([picker, setting] { picker->SetColour(ToColour(setting.get())); });
}

void SettingsPage_cls::ScrollTo(const wxWindow& control) {
    const int top = ScreenToClient(control.GetScreenPosition()).y;
    const int below = top + control.GetSize().y + FromDIP(Spacing::kRow) - GetClientSize().y;
    const int way = top < 0 ? top - FromDIP(Spacing::kRow) : std::max(below, 0);
    const int step = FromDIP(kScrollStep);
    if (way != 0)
        Scroll(wxDefaultCoord, GetViewStart().y + (way > 0 ? (way + step - 1) / step : way / step - 1));
}

void SettingsPage_cls::ScrollByWheel(wxWindow& control) {
    control.Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { HandleOnMouseWheel(event); });
}

void SettingsPage_cls::EnterText(wxTextCtrl& text, const Setting_cls<wxString>& setting) {
    if (!text.IsModified()) return;
    text.DiscardEdits();
    setting.set(text.GetValue());
}

wxTextCtrl& SettingsPage_cls::AddText(const wxString& label, const wxString& tooltip,
                                      const Setting_cls<wxString>& setting) {
    AddLabel(label);
    auto* text = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER,
                                wxDefaultValidator, label);
    text->SetToolTip(tooltip);
    text->Bind(wxEVT_TEXT_ENTER, [text, setting](wxCommandEvent&) { EnterText(*text, setting); });
    text->Bind(wxEVT_KILL_FOCUS, [text, setting](wxFocusEvent& event) {
        EnterText(*text, setting);
        event.Skip();
    });
    AddControl(text, true);
    AddRefresher([text, setting] {
        if (!text->IsModified() && text->GetValue() != setting.get()) text->ChangeValue(setting.get());
    });
    return *text;
}

void SettingsPage_cls::AddFile(const wxString& label, const wxString& tooltip, const wxString& wildcard,
                               const Setting_cls<wxString>& setting) {
    wxTextCtrl& text = AddText(label, tooltip, setting);
    auto* button = new wxButton(this, wxID_ANY, _("Browse..."), wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, label + " browse");
    button->SetToolTip(_("Choose the file"));
    button->Bind(wxEVT_BUTTON, [this, label, wildcard, setting](wxCommandEvent&) {
        wxFileDialog dialog(this, label, {}, setting.get(), wildcard, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
        if (dialog.ShowModal() == wxID_OK) setting.set(dialog.GetPath());
    });
    Grid().Detach(&text);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(&text, wxSizerFlags(1).CenterVertical());
    row->Add(button, wxSizerFlags().CenterVertical().Border(wxLEFT, FromDIP(Spacing::kRow)));
    Grid().Add(row, wxSizerFlags().Expand());
}

void SettingsPage_cls::AddWindow(const wxString& label, wxWindow* window) {
    AddLabel(label);
    AddControl(window, true);
}

void SettingsPage_cls::AddButtons(const wxString& label, const std::vector<Button>& buttons) {
    AddLabel(label);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (const Button& entry : buttons) {
        auto* button = new wxButton(this, wxID_ANY, entry.label, wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, entry.label);
        button->SetToolTip(entry.tooltip);
        button->Bind(wxEVT_BUTTON, [press = entry.press](wxCommandEvent&) { press(); });
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(Spacing::kRow)));
    }
    Grid().Add(row, wxSizerFlags().Expand());
}

void SettingsPage_cls::AddRefresher(std::function<void()> refresher) {
    refresher();
    mRefreshers.push_back(std::move(refresher));
}

void SettingsPage_cls::RefreshFromModel() {
    for (const auto& refresher : mRefreshers) refresher();
}
