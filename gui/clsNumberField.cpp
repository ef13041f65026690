#include "gui/clsNumberField.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr int kTextCharacters = 9;
const wxColour kMarkColour(214, 48, 49);  // readable on light and on dark windows

}  // namespace

NumberField_cls::NumberField_cls(wxWindow* parent, const wxString& name, const wxString& tooltip,
                                 const NumberLimits_cls& limits, Setting_cls<double> setting)
    : wxPanel(parent), mLimits(limits), mSetting(std::move(setting)) {
    mText = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER,
                           wxDefaultValidator, name);
    mText->SetInitialSize(mText->GetSizeFromTextSize(mText->GetTextExtent(wxString('0', kTextCharacters))));
    mText->SetToolTip(tooltip + "\n" + GetLimitWords());
    mUnit =
        new wxStaticText(this, wxID_ANY, mLimits.unit, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(mText, wxSizerFlags(0).CenterVertical());
    sizer->Add(mUnit, wxSizerFlags(1).CenterVertical().Border(wxLEFT, FromDIP(4)));
    SetSizerAndFit(sizer);

    mText->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { ShowMark(); });
    mText->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) {
        Commit();
        mText->SelectAll();
    });
    mText->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        Commit();
        event.Skip();
    });
    mText->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (key == WXK_ESCAPE && mText->IsModified()) {
            mText->DiscardEdits();
            RefreshFromModel();
        } else if (key == WXK_UP || key == WXK_DOWN) {
            Step(key == WXK_UP ? 1 : -1);
        } else {
            event.Skip();
        }
    });
    RefreshFromModel();
}

wxString NumberField_cls::Format(double value, bool whole) {
    char buffer[400];  // the longest double has 309 digits
    // Settings are floats: nine digits of a double would show what nobody typed.
    const auto result = whole ? std::to_chars(buffer, buffer + sizeof buffer, std::llround(value))
                              : std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(value));
    return wxString::FromAscii(buffer, static_cast<size_t>(result.ptr - buffer));
}

bool NumberField_cls::Parse(const wxString& text, double& value) {
    const std::string bytes = text.Strip(wxString::both).ToStdString(wxConvUTF8);
    const char* const end = bytes.data() + bytes.size();
    const auto [stop, error] = std::from_chars(bytes.data(), end, value);
    return error == std::errc() && stop == end && std::isfinite(value);
}

bool NumberField_cls::ReadEntry(double& value) const {
    return Parse(mText->GetValue(), value) && value >= mLimits.min && value <= mLimits.max &&
           (!mLimits.whole || value == std::floor(value));
}

wxString NumberField_cls::GetLimitWords() const {
    const wxString kind = mLimits.whole ? _("whole number") : _("number");
    const bool below = mLimits.min > -1e30;
    const bool above = mLimits.max < 1e30;
    const wxString min = Format(mLimits.min, mLimits.whole);
    const wxString max = Format(mLimits.max, mLimits.whole);
    if (below && above) return wxString::Format(_("%s, %s to %s"), kind, min, max);
    if (below) return wxString::Format(_("%s, %s or more"), kind, min);
    return kind;
}

void NumberField_cls::ShowMark() {
    double value = 0.0;
    const bool marked = !ReadEntry(value);
    if (marked == mMarked) return;
    mMarked = marked;
    mUnit->SetLabel(marked ? wxString::FromUTF8("\u26A0 ") + GetLimitWords() : mLimits.unit);
    mUnit->SetForegroundColour(marked ? kMarkColour : wxNullColour);
    mText->SetForegroundColour(marked ? kMarkColour : wxNullColour);
    mText->Refresh();
    GetParent()->Layout();
    Layout();
}

void NumberField_cls::RefreshFromModel() {
    if (mText->IsModified()) return;
    const wxString text = Format(mSetting.get(), mLimits.whole);
    if (text != mText->GetValue()) mText->ChangeValue(text);
    ShowMark();
}

void NumberField_cls::Commit() {
    if (!mText->IsModified()) return;
    double value = 0.0;
    if (!ReadEntry(value)) return;
    mText->DiscardEdits();
    // A number that was only shown in fewer digits is not a change.
    if (mText->GetValue() != Format(mSetting.get(), mLimits.whole)) mSetting.set(value);
    RefreshFromModel();
}

void NumberField_cls::Step(int direction) {
    double value = 0.0;
    if (!ReadEntry(value)) return;
    double step = mLimits.step;
    if (step <= 0.0)
        step = value == 0.0 ? 0.1 : std::pow(10.0, std::floor(std::log10(std::abs(value))) - 1.0);
    if (mLimits.whole) step = std::max(1.0, std::round(step));
    mText->DiscardEdits();
    mSetting.set(std::clamp(value + direction * step, mLimits.min, mLimits.max));
    RefreshFromModel();
}
