#include "gui/clsColorCurveBtn.h"

#include <wx/bmpbuttn.h>
#include <wx/sizer.h>

#include "gui/clsGradientImage.h"
#include "gui/clsIcons.h"
#include "gui/clsSpacing.h"
#include "render/clsColorCurveCtrl.h"

namespace {

constexpr int kButtonWidth = 120;
constexpr int kButtonHeight = 18;

}  // namespace

ColorCurveBtn_cls::ColorCurveBtn_cls(wxWindow* parent, const wxString& name, ColorCurve_cls& curve,
                                     ColorCurveCtrl_cls& ctrl)
    : wxPanel(parent), mCurve(curve), mCtrl(ctrl) {
    const auto make = [this](const wxBitmapBundle& bitmap, const wxString& label, const wxString& tooltip,
                             void (ColorCurveBtn_cls::*press)()) {
        auto* button = new wxBitmapButton(this, wxID_ANY, bitmap, wxDefaultPosition, wxDefaultSize,
                                          wxBU_EXACTFIT, wxDefaultValidator, label);
        button->SetToolTip(tooltip);
        button->Bind(wxEVT_BUTTON, [this, press](wxCommandEvent&) { (this->*press)(); });
        return button;
    };
    mGradient = new wxBitmapButton(this, wxID_ANY, wxBitmap(FromDIP(wxSize(kButtonWidth, kButtonHeight))),
                                   wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    mGradient->SetToolTip(wxString::Format(_("%s: opens the color curve editor"), mCurve.GetDisplayName()));
    mGradient->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { mCtrl.LinkColorCurve(mCurve); });
    auto* copy = make(Icons_cls::Get("copy", *this), name + " copy",
                      _("Copy this curve with its settings (Ctrl+C)"), &ColorCurveBtn_cls::Copy);
    auto* paste =
        make(Icons_cls::Get("paste", *this), name + " paste",
             _("Replace this curve and its settings by the copied one (Ctrl+V)"), &ColorCurveBtn_cls::Paste);
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags flags = wxSizerFlags().CenterVertical();
    sizer->Add(mGradient, flags);
    sizer->Add(copy, wxSizerFlags(flags).Border(wxLEFT, FromDIP(Spacing::kThin)));
    sizer->Add(paste, wxSizerFlags(flags).Border(wxLEFT, FromDIP(Spacing::kThin)));
    SetSizerAndFit(sizer);

    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const bool control = event.GetModifiers() == wxMOD_CONTROL;
        if (control && event.GetKeyCode() == 'C') {
            Copy();
        } else if (control && event.GetKeyCode() == 'V') {
            Paste();
        } else {
            event.Skip();
        }
    });
    PaintGradient();
}

wxWindow& ColorCurveBtn_cls::GetGradient() {
    return *mGradient;
}

void ColorCurveBtn_cls::PaintGradient() {
    const wxSize size = FromDIP(wxSize(kButtonWidth, kButtonHeight));
    mGradient->SetBitmap(wxBitmap(GradientImage_cls::Make(mCurve, GradientImage_cls::Show::Effect, size.x,
                                                          size.y, FromDIP(GradientImage_cls::kSquare))));
}

void ColorCurveBtn_cls::ShowSettings(std::uint64_t) {
    PaintGradient();
}

void ColorCurveBtn_cls::Copy() {
    mCtrl.Copy(mCurve);
}

void ColorCurveBtn_cls::Paste() {
    mCtrl.Paste(mCurve);
}
