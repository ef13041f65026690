#include "gui/clsKeyFrameGUI.h"

#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <cmath>

#include "timeline/clsTimeCtrl.h"

namespace {

const NumberLimits_cls kAnyNumber{};

/// Times are kept as fractions of the scene; what that adds to a frame's number nobody wants to read.
double RoundedFrame(double frame) {
    return std::round(frame * 1e6) / 1e6;
}

}  // namespace

KeyFrameGUI_cls::KeyFrameGUI_cls(wxWindow* parent, const TimeCtrl_cls& timeCtrl, const wxString& name,
                                 const TimelineKeys_cls::Lane& lane, double t)
    : wxDialog(parent, wxID_ANY, "Key of " + name, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mTimeCtrl(timeCtrl),
      mTime(t),
      mGrid(*this, [this] { Accept(); }) {
    std::copy_if(lane.begin(), lane.end(), std::back_inserter(mLane),
                 [t](const Parameters_cls* parameter) { return parameter->FindKey(t) >= 0; });

    mFrame = &mGrid.AddNumber("Frame", "Where the key is on the timeline, in frames; a fraction is allowed",
                              RoundedFrame(t * mTimeCtrl.GetMaxFrame()));
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
    mGrid.AddControl("Interpolate Type", *mType);

    mEaseFactor =
        &mGrid.AddNumber("Ease Factor",
                         "Factor on the automatic tangent: 0 rests at the key, 1 is the smooth curve. "
                         "Used by HERMITE (SEMIAUTO)",
                         GetCommon(&KeyFrame_cls::mEaseFactor));
    mVelocity = &mGrid.AddNumber(
        "Tangent", "Slope of the curve at the key, in value units per scene length. Used by HERMITE",
        GetCommon(&KeyFrame_cls::mVelocity));
    for (const Parameters_cls* parameter : mLane) {
        mValues.push_back(&mGrid.AddNumber(parameter->GetName(),
                                           "Value at the key, in the units of the setting",
                                           GetKey(*parameter).mValue));
    }
    EnableFields();

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mGrid.GetSizer(), wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
    sizer->Add(CreateButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
    SetSizerAndFit(sizer);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); }, wxID_OK);
    mFrame->text->SetFocus();
    mFrame->text->SelectAll();
}

const KeyFrame_cls& KeyFrameGUI_cls::GetKey(const Parameters_cls& parameter) const {
    return parameter.GetKeys().at(static_cast<size_t>(parameter.FindKey(mTime)));
}

std::optional<double> KeyFrameGUI_cls::GetCommon(double KeyFrame_cls::*member) const {
    if (!HasKeys()) return std::nullopt;
    const double value = GetKey(*mLane.front()).*member;
    const bool same = std::all_of(mLane.begin(), mLane.end(),
                                  [&](const auto* parameter) { return GetKey(*parameter).*member == value; });
    return same ? std::optional(value) : std::nullopt;
}

void KeyFrameGUI_cls::EnableFields() {
    // A choice left open stands for several types.
    const int type = mType->GetSelection();
    mEaseFactor->text->Enable(type == wxNOT_FOUND || type == KeyFrame_cls::kHermiteSemiAuto);
    mVelocity->text->Enable(type == wxNOT_FOUND || type == KeyFrame_cls::kHermite);
}

void KeyFrameGUI_cls::Accept() {
    if (Apply()) EndModal(wxID_OK);
}

bool KeyFrameGUI_cls::Apply() {
    const int maxFrame = mTimeCtrl.GetMaxFrame();
    TimelineKeys_cls::Change change;
    if (const auto frame = mGrid.Read(*mFrame, {.min = 0.0, .max = static_cast<double>(maxFrame)});
        frame && maxFrame > 0)
        change.time = *frame / maxFrame;
    if (mType->GetSelection() != wxNOT_FOUND) change.type = static_cast<unsigned int>(mType->GetSelection());
    change.easeFactor = mGrid.Read(*mEaseFactor, kAnyNumber);
    change.velocity = mGrid.Read(*mVelocity, kAnyNumber);
    for (EntryGrid_cls::Entry* entry : mValues) change.values.push_back(mGrid.Read(*entry, kAnyNumber));
    if (!mGrid.TakeGood()) return false;
    TimelineKeys_cls::ChangeKeys(mLane, mTime, change);
    return true;
}
