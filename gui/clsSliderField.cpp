#include "gui/clsSliderField.h"

#include <wx/sizer.h>
#include <wx/slider.h>
#include <wx/utils.h>

#include <algorithm>
#include <cmath>

#include "timeline/clsUndoManager.h"

namespace {

constexpr int kPositions = 400;

}  // namespace

SliderField_cls::SliderField_cls(wxWindow* parent, const wxString& name, const wxString& tooltip,
                                 const Range& range, const NumberLimits_cls& limits,
                                 const Setting_cls<double>& setting)
    : wxPanel(parent), mRange(range), mWhole(limits.whole), mSetting(setting) {
    mSlider = new wxSlider(this, wxID_ANY, 0, 0, kPositions, wxDefaultPosition, wxDefaultSize,
                           wxSL_HORIZONTAL, wxDefaultValidator, name + " slider");
    mSlider->SetToolTip(tooltip);
    mField = new NumberField_cls(this, name, tooltip, limits, setting);
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(mSlider, wxSizerFlags(1).CenterVertical());
    sizer->Add(mField, wxSizerFlags(1).CenterVertical());
    SetSizerAndFit(sizer);

    mSlider->Bind(wxEVT_SLIDER, [this](wxCommandEvent&) { OnSlide(); });
    mSlider->Bind(wxEVT_SCROLL_THUMBRELEASE, [this](wxScrollEvent&) { EndDrag(); });
    mSlider->Bind(wxEVT_SCROLL_CHANGED, [this](wxScrollEvent&) { EndDrag(); });
    RefreshFromModel();
}

double SliderField_cls::FromPosition(int position) const {
    const double part = static_cast<double>(position) / kPositions;
    const double value = mRange.logarithmic ? mRange.low * std::pow(mRange.high / mRange.low, part)
                                            : mRange.low + (mRange.high - mRange.low) * part;
    if (mWhole) return std::round(value);
    // Three digits: a drag leaves numbers that can be read.
    if (value == 0.0) return 0.0;
    const double unit = std::pow(10.0, std::floor(std::log10(std::abs(value))) - 2.0);
    return std::round(value / unit) * unit;
}

int SliderField_cls::ToPosition(double value) const {
    const double inside = std::clamp(value, mRange.low, mRange.high);
    const double part = mRange.logarithmic
                            ? std::log(inside / mRange.low) / std::log(mRange.high / mRange.low)
                            : (inside - mRange.low) / (mRange.high - mRange.low);
    return static_cast<int>(std::lround(part * kPositions));
}

void SliderField_cls::OnSlide() {
    const double value = FromPosition(mSlider->GetValue());
    if (!mDragging && wxGetMouseState().LeftIsDown()) {
        mDragging = true;
        GCUndoList.BeginDrag();
    }
    if (mDragging) GCUndoList.RestartDrag();
    mSetting.set(value);
    mField->RefreshFromModel();
}

void SliderField_cls::EndDrag() {
    if (!mDragging) return;
    mDragging = false;
    GCUndoList.EndDrag();
}

void SliderField_cls::RefreshFromModel() {
    mField->RefreshFromModel();
    const int position = ToPosition(mSetting.get());
    if (!mDragging && position != mSlider->GetValue()) mSlider->SetValue(position);
}
