#include "gui/clsNumberField.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kTextCharacters = 10;

}  // namespace

NumberField_cls::NumberField_cls(wxWindow* parent, const wxString& name, const wxString& tooltip,
                                 const NumberLimits_cls& limits, Setting_cls<double> setting)
    : wxPanel(parent), mLimits(limits), mSetting(std::move(setting)) {
    mText = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER,
                           wxDefaultValidator, name);
    mText->SetInitialSize(mText->GetSizeFromTextSize(mText->GetTextExtent(wxString('0', kTextCharacters))));
    mText->SetToolTip(tooltip + "\n" + mLimits.GetWords());
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

void NumberField_cls::ShowMark() {
    const bool marked = !mLimits.Read(mText->GetValue());
    if (!marked && !mMarked) return;
    mMarked = marked;
    mLimits.ShowMark(*mText, *mUnit, marked);
    GetParent()->Layout();
    Layout();
}

void NumberField_cls::RefreshFromModel() {
    if (mText->IsModified()) return;
    const wxString text = NumberLimits_cls::Format(mSetting.get(), mLimits.whole);
    if (text != mText->GetValue()) mText->ChangeValue(text);
    ShowMark();
}

void NumberField_cls::Commit() {
    if (!mText->IsModified()) return;
    const std::optional<double> value = mLimits.Read(mText->GetValue());
    if (!value) return;
    mText->DiscardEdits();
    // A number that was only shown in fewer digits is not a change.
    if (mText->GetValue() != NumberLimits_cls::Format(mSetting.get(), mLimits.whole)) mSetting.set(*value);
    RefreshFromModel();
}

void NumberField_cls::Step(int direction) {
    const std::optional<double> value = mLimits.Read(mText->GetValue());
    if (!value) return;
    double step = mLimits.step;
    if (step <= 0.0)
        step = *value == 0.0 ? 0.1 : std::pow(10.0, std::floor(std::log10(std::abs(*value))) - 1.0);
    if (mLimits.whole) step = std::max(1.0, std::round(step));
    mText->DiscardEdits();
    mSetting.set(std::clamp(*value + direction * step, mLimits.min, mLimits.max));
    RefreshFromModel();
}
