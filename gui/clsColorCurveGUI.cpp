#include "gui/clsColorCurveGUI.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

#include "gui/clsColorCurveCanvas.h"
#include "gui/clsColorCurveTemplate.h"
#include "gui/clsSettingsPage.h"
#include "gui/clsSpacing.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsColorCurveEdit.h"

namespace {

/// Between two gatherings of a frame's values.
constexpr int kHistogramMs = 150;
/// The part of the values that the narrower range leaves out at each end.
constexpr double kTail = 0.01;

}  // namespace

ColorCurveGUI_cls::ColorCurveGUI_cls(wxWindow* parent, ColorCurveCtrl_cls& ctrl, Curves curves)
    : wxPanel(parent), mCtrl(ctrl), mCurves(std::move(curves)) {
    wxSizer* choice = MakeChoice();
    mCanvas = new ColorCurveCanvas_cls(this);
    wxSizer* buttons = MakeButtons();
    mScalingPage = MakeScalingPage();
    mKeyPage = MakeKeyPage();
    auto* templates = new ColorCurveTemplate_cls(this, [this](const ColorCurve_cls& source) {
        if (ColorCurve_cls* curve = mCtrl.GetLinked()) ColorCurveEdit_cls(*curve).ApplyTemplate(source);
    });
    mHistogramTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (IsShownOnScreen()) UpdateHistogram();
    });
    mCanvas->SetObserver([this] { mKeyPage->RefreshFromModel(); });

    auto* left = new wxBoxSizer(wxVERTICAL);
    left->Add(mScalingPage, wxSizerFlags().Expand());
    left->Add(templates, wxSizerFlags().Border(wxALL, FromDIP(Spacing::kRow)));
    auto* below = new wxBoxSizer(wxHORIZONTAL);
    below->Add(left, wxSizerFlags(1).Expand());
    below->Add(mKeyPage, wxSizerFlags(1).Expand());
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(choice, wxSizerFlags().Border(wxALL, FromDIP(Spacing::kRow)));
    sizer->Add(mCanvas, wxSizerFlags(1).Expand());
    sizer->Add(buttons, wxSizerFlags().Border(wxALL, FromDIP(Spacing::kRow)));
    sizer->Add(below, wxSizerFlags().Expand());
    SetSizerAndFit(sizer);
    ShowLinked();
}

wxSizer* ColorCurveGUI_cls::MakeChoice() {
    wxArrayString names;
    for (const ColorCurve_cls* curve : mCurves) names.Add(curve->GetDisplayName());
    mChoice =
        new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, names, 0, wxDefaultValidator, "Curve");
    mChoice->SetToolTip(
        _("The curve that is edited. Points and billboards show Color, spheres Ambient, Diffuse and "
          "Specular."));
    mChoice->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        mCtrl.LinkColorCurve(*mCurves.at(static_cast<size_t>(event.GetSelection())));
    });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(this, wxID_ANY, _("Curve")), wxSizerFlags().CenterVertical());
    row->Add(mChoice, wxSizerFlags().Border(wxLEFT, FromDIP(2 * Spacing::kRow)));
    return row;
}

wxSizer* ColorCurveGUI_cls::MakeButtons() {
    struct Entry {
        wxString label;
        wxString tooltip;
        std::function<void(ColorCurve_cls&)> press;
    };
    const std::vector<Entry> entries = {
        {_("Insert Key"), _("Add a key at the current position with the colour shown (Insert)"),
         [this](ColorCurve_cls&) { mCanvas->InsertKey(); }},
        {_("Delete Key"), _("Remove the key at the current position (Delete)"),
         [this](ColorCurve_cls&) { mCanvas->DeleteKey(); }},
        {_("Flip Color"), _("Mirror the curve: the colours of low and high values change places"),
         [](ColorCurve_cls& curve) { curve.Flip(); }},
        {_("Swap RGB"), _("Rotate the channels: red takes green's curve, green blue's, blue red's"),
         [](ColorCurve_cls& curve) { curve.SwapRGB(); }},
        {_("Copy"), _("Copy this curve with its settings"),
         [this](ColorCurve_cls& curve) { mCtrl.Copy(curve); }},
        {_("Paste"), _("Replace this curve and its settings by the copied one"),
         [this](ColorCurve_cls& curve) { mCtrl.Paste(curve); }},
    };
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (const Entry& entry : entries) {
        auto* button = new wxButton(this, wxID_ANY, entry.label, wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, entry.label);
        button->SetToolTip(entry.tooltip);
        button->Bind(wxEVT_BUTTON, [this, press = entry.press](wxCommandEvent&) {
            if (ColorCurve_cls* curve = mCtrl.GetLinked()) press(*curve);
        });
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(Spacing::kRow)));
    }
    return row;
}

template <class Value, class Stored>
Setting_cls<Value> ColorCurveGUI_cls::BindLinked(const wxString& name, Stored ColorCurve_cls::*item,
                                                 Value empty) {
    return {[this, item, empty] {
                ColorCurve_cls* curve = mCtrl.GetLinked();
                return curve ? static_cast<Value>((curve->*item).mValue) : empty;
            },
            [this, name, item](const Value& value) {
                if (ColorCurve_cls* curve = mCtrl.GetLinked())
                    BindAs<Value>(name, (curve->*item).mValue).set(value);
            }};
}

SettingsPage_cls* ColorCurveGUI_cls::MakeScalingPage() {
    auto* page = new SettingsPage_cls(this);
    page->AddCheck(_("Use color curve"),
                   _("On: each particle is coloured by its own value. Off: all have the constant colour."),
                   BindLinked<bool>("Use color curve", &ColorCurve_cls::mUseColorCurve, false));
    wxArrayString names;
    for (unsigned int depend = 0; depend < ColorCurve_cls::kDependCount; ++depend)
        names.Add(ColorCurve_cls::GetDependName(depend));
    page->AddChoice(_("Depend on"), _("The quantity of a particle that chooses its place on the curve"),
                    names, BindLinked<unsigned int>("Depend on", &ColorCurve_cls::mDependType, 0U));
    page->AddNumbers(_("Min/Max"),
                     _("The values, in the data's own units, at the left and the right end of the curve"), {},
                     {BindLinked<double>("Min/Max", &ColorCurve_cls::mScalingMin, 0.0),
                      BindLinked<double>("Min/Max", &ColorCurve_cls::mScalingMax, 1.0)});
    page->AddButtons(
        {}, {{_("Data range"), _("Min/Max from the least to the greatest value of this frame"),
              [this] {
                  UpdateHistogram();
                  SetRange(mHistogram.GetRange());
              }},
             {_("1 - 99 %"), _("Min/Max without the lowest and the highest hundredth of the values"), [this] {
                  UpdateHistogram();
                  SetRange(mHistogram.GetPartRange(kTail, 1.0 - kTail));
              }}});
    const auto constant = [this]() -> std::span<float> {
        ColorCurve_cls* curve = mCtrl.GetLinked();
        return curve ? std::span<float>(curve->mConstantColor.mValue).first(4) : std::span<float>();
    };
    page->AddColor(_("Constant color"), _("The colour of all particles while the curve is off"),
                   {[constant] { return BindColor("Constant color", constant()).get(); },
                    [constant](const Color4& color) { BindColor("Constant color", constant()).set(color); }});
    return page;
}

Setting_cls<Color4> ColorCurveGUI_cls::BindKeyColor() {
    return {[this] {
                const ColorCurve_cls* curve = mCtrl.GetLinked();
                return curve ? ColorCurveEdit_cls::GetColor(*curve, mCanvas->GetPosition()) : Color4{};
            },
            [this](const Color4& color) {
                ColorCurve_cls* curve = mCtrl.GetLinked();
                if (curve) ColorCurveEdit_cls(*curve).SetColor(mCanvas->GetPosition(), color);
            }};
}

Setting_cls<double> ColorCurveGUI_cls::BindChannel(size_t channel) {
    const Setting_cls<Color4> color = BindKeyColor();
    return {[color, channel] { return static_cast<double>(color.get()[channel]); },
            [color, channel](const double& value) {
                Color4 changed = color.get();
                changed[channel] = static_cast<float>(value);
                color.set(changed);
            }};
}

SettingsPage_cls* ColorCurveGUI_cls::MakeKeyPage() {
    auto* page = new SettingsPage_cls(this);
    page->AddNumber(_("Position"), _("Place on the curve: 0 at Min, 1 at Max. Moves the key that is there."),
                    {.min = 0.0, .max = 1.0, .step = 0.01},
                    {[this] { return mCanvas->GetPosition(); },
                     [this](const double& to) {
                         ColorCurve_cls* curve = mCtrl.GetLinked();
                         if (!curve) return;
                         ColorCurveEdit_cls edit(*curve);
                         const double from = mCanvas->GetPosition();
                         mCanvas->SetPosition(edit.HasKey(from) ? edit.MoveKey(from, to) : to);
                     }});
    page->AddColor(_("Key color"), _("The colour at the current position; between keys this adds one"),
                   BindKeyColor());
    const std::array<wxString, 4> labels = {"R", "G", "B", "A"};
    const std::array<wxString, 4> meanings = {_("Red"), _("Green"), _("Blue"), _("Opacity")};
    for (size_t channel = 0; channel < labels.size(); ++channel) {
        page->AddSlider(
            labels[channel],
            wxString::Format(_("%s at the current position, 0 to 1; between keys this adds a key"),
                             meanings[channel]),
            {}, {.min = 0.0, .max = 1.0, .step = 0.01}, BindChannel(channel));
    }
    return page;
}

void ColorCurveGUI_cls::SetRange(const ValueHistogram_cls::Range& range) {
    ColorCurve_cls* curve = mCtrl.GetLinked();
    if (curve && mHistogram.GetCount() > 0) ColorCurveEdit_cls(*curve).SetScaling(range.min, range.max);
}

void ColorCurveGUI_cls::UpdateHistogram() {
    const ColorCurve_cls* curve = mCtrl.GetLinked();
    ColorCurveCtrl_cls::Values values = curve ? mCtrl.GetValues(*curve) : std::vector<float>();
    if (!values) {
        UpdateHistogramSoon();
        return;
    }
    mHistogram = ValueHistogram_cls(std::move(*values));
    mCanvas->SetHistogram(&mHistogram);
}

void ColorCurveGUI_cls::UpdateHistogramSoon() {
    if (!mHistogramTimer.IsRunning()) mHistogramTimer.StartOnce(kHistogramMs);
}

void ColorCurveGUI_cls::ShowLinked() {
    ColorCurve_cls* curve = mCtrl.GetLinked();
    const auto place = std::ranges::find(mCurves, curve);
    mChoice->SetSelection(place == mCurves.end() ? wxNOT_FOUND : static_cast<int>(place - mCurves.begin()));
    mCanvas->SetCurve(curve);
    ShowSettings(0);
    UpdateHistogram();
}

void ColorCurveGUI_cls::ShowSettings(std::uint64_t updateBits) {
    constexpr std::uint64_t kOtherValues = CommandItem_cls::kUpdateTime | CommandItem_cls::kUpdatePanels;
    if ((updateBits & kOtherValues) != 0) UpdateHistogramSoon();
    mCanvas->Refresh();
    mKeyPage->RefreshFromModel();
    mScalingPage->RefreshFromModel();
}
