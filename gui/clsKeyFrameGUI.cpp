#include "gui/clsKeyFrameGUI.h"

#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "timeline/clsTimeCtrl.h"

namespace {

constexpr double kAny = std::numeric_limits<double>::max();

wxString Digits(double value) {
    return wxString::FromCDouble(value);
}

}  // namespace

KeyFrameGUI_cls::KeyFrameGUI_cls(wxWindow* parent, const TimeCtrl_cls& timeCtrl, const wxString& name,
                                 const TimelineKeys_cls::Lane& lane, double t)
    : wxDialog(parent, wxID_ANY, "Key of " + name, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mTimeCtrl(timeCtrl),
      mTime(t),
      mGrid(new wxFlexGridSizer(3, FromDIP(wxSize(10, 6)))) {
    std::copy_if(lane.begin(), lane.end(), std::back_inserter(mLane),
                 [t](const Parameters_cls* parameter) { return parameter->FindKey(t) >= 0; });
    mGrid->AddGrowableCol(1);

    mFrame = AddField("Frame", "Where the key is on the timeline, in frames; a fraction is allowed",
                      Digits(std::round(t * mTimeCtrl.GetMaxFrame() * 1e6) / 1e6));

    mGrid->Add(new wxStaticText(this, wxID_ANY, "Interpolate Type"), wxSizerFlags().CenterVertical());
    mType = new wxChoice(this, wxID_ANY);
    mType->SetToolTip("How the value goes from this key to the next one");
    mType->SetName("Interpolate Type");
    for (unsigned int type = 0; type < KeyFrame_cls::kTypeCount; ++type)
        mType->Append(KeyFrame_cls::GetTypeName(type));
    if (HasKeys()) {
        const unsigned int type = GetKey(*mLane.front()).mType;
        const bool same = std::all_of(mLane.begin(), mLane.end(), [&](const auto* parameter) {
            return GetKey(*parameter).mType == type;
        });
        if (same && type < KeyFrame_cls::kTypeCount) mType->SetSelection(static_cast<int>(type));
    }
    mType->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { EnableFields(); });
    mGrid->Add(mType, wxSizerFlags().Expand());
    mGrid->AddSpacer(0);

    mEaseFactor =
        AddField("Ease Factor",
                 "Factor on the automatic tangent: 0 rests at the key, 1 is the smooth curve. Used by "
                 "HERMITE (SEMIAUTO)",
                 GetCommon(&KeyFrame_cls::mEaseFactor));
    mVelocity =
        AddField("Tangent", "Slope of the curve at the key, in value units per scene length. Used by HERMITE",
                 GetCommon(&KeyFrame_cls::mVelocity));
    for (const Parameters_cls* parameter : mLane)
        mValues.push_back(AddField(parameter->GetName(), "Value at the key, in the units of the setting",
                                   Digits(GetKey(*parameter).mValue)));
    EnableFields();

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mGrid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
    sizer->Add(CreateButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
    SetSizerAndFit(sizer);
    Bind(
        wxEVT_BUTTON,
        [this](wxCommandEvent&) {
            if (Apply()) EndModal(wxID_OK);
        },
        wxID_OK);
    mFrame.text->SetFocus();
    mFrame.text->SelectAll();
}

const KeyFrame_cls& KeyFrameGUI_cls::GetKey(const Parameters_cls& parameter) const {
    return parameter.GetKeys().at(static_cast<size_t>(parameter.FindKey(mTime)));
}

wxString KeyFrameGUI_cls::GetCommon(double KeyFrame_cls::*member) const {
    if (!HasKeys()) return {};
    const double value = GetKey(*mLane.front()).*member;
    const bool same = std::all_of(mLane.begin(), mLane.end(),
                                  [&](const auto* parameter) { return GetKey(*parameter).*member == value; });
    return same ? Digits(value) : wxString();
}

KeyFrameGUI_cls::Field KeyFrameGUI_cls::AddField(const wxString& label, const wxString& tip,
                                                 const wxString& value) {
    Field field;
    field.before = value;
    field.text = new wxTextCtrl(this, wxID_ANY, value, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    field.text->SetToolTip(tip);
    field.text->SetName(label);
    field.text->SetMinSize(field.text->GetSizeFromTextSize(GetTextExtent("-0000.000000000000")));
    field.text->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) {
        if (Apply()) EndModal(wxID_OK);
    });
    field.fault = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                                   GetTextExtent("not a number in the scene"), wxST_NO_AUTORESIZE);
    field.fault->SetForegroundColour(wxColour(214, 48, 40));
    mGrid->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CenterVertical());
    mGrid->Add(field.text, wxSizerFlags().Expand());
    mGrid->Add(field.fault, wxSizerFlags().CenterVertical());
    return field;
}

void KeyFrameGUI_cls::EnableFields() {
    // A choice left open stands for several types.
    const int type = mType->GetSelection();
    mEaseFactor.text->Enable(type == wxNOT_FOUND || type == KeyFrame_cls::kHermiteSemiAuto);
    mVelocity.text->Enable(type == wxNOT_FOUND || type == KeyFrame_cls::kHermite);
}

std::optional<double> KeyFrameGUI_cls::Read(Field& field, double lowest, double highest) {
    field.fault->SetLabel(wxString());
    const wxString entry = field.text->GetValue().Trim().Trim(false);
    if (entry == field.before || !field.text->IsEnabled()) return std::nullopt;
    double value = 0.0;
    if (!entry.ToCDouble(&value) || !std::isfinite(value)) {
        field.fault->SetLabel("not a number");
    } else if (value < lowest || value > highest) {
        field.fault->SetLabel("outside of the scene");
    } else {
        return value;
    }
    mGood = false;
    return std::nullopt;
}

bool KeyFrameGUI_cls::Apply() {
    mGood = true;
    const int maxFrame = mTimeCtrl.GetMaxFrame();
    TimelineKeys_cls::Change change;
    if (const std::optional<double> frame = Read(mFrame, 0.0, maxFrame); frame && maxFrame > 0)
        change.time = *frame / maxFrame;
    if (mType->GetSelection() != wxNOT_FOUND) change.type = static_cast<unsigned int>(mType->GetSelection());
    change.easeFactor = Read(mEaseFactor, -kAny, kAny);
    change.velocity = Read(mVelocity, -kAny, kAny);
    for (Field& field : mValues) change.values.push_back(Read(field, -kAny, kAny));
    if (mGood) TimelineKeys_cls::ChangeKeys(mLane, mTime, change);
    return mGood;
}
