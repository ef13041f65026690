#include "gui/clsColorCurveTemplate.h"

#include <wx/bmpbuttn.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <vector>

#include "gui/clsGradientImage.h"
#include "gui/clsSpacing.h"
#include "render/clsColorCurveTemplateSet.h"

namespace {

constexpr int kTemplateWidth = 96;
constexpr int kTemplateHeight = 22;

/// The same in every palette, so made once for the process.
const ColorCurveTemplateSet_cls& Templates() {
    static const ColorCurveTemplateSet_cls templates;
    return templates;
}

}  // namespace

ColorCurveTemplate_cls::ColorCurveTemplate_cls(wxWindow* parent,
                                               std::function<void(const ColorCurve_cls&)> press)
    : wxPanel(parent) {
    static const std::vector<wxImage> images = [] {
        std::vector<wxImage> made;
        for (size_t i = 0; i < Templates().GetNumber(); ++i) {
            made.push_back(GradientImage_cls::Make(Templates().Get(i), GradientImage_cls::Show::Keys,
                                                   2 * kTemplateWidth, 2 * kTemplateHeight,
                                                   2 * GradientImage_cls::kSquare));
        }
        return made;
    }();

    auto* title = new wxStaticText(this, wxID_ANY, kTitle);
    title->SetFont(title->GetFont().Bold());
    auto* grid = new wxFlexGridSizer(3, FromDIP(wxSize(Spacing::kTight, Spacing::kTight)));
    for (size_t i = 0; i < images.size(); ++i) {
        const ColorCurve_cls& source = Templates().Get(i);
        const wxSize size = FromDIP(wxSize(kTemplateWidth, kTemplateHeight));
        auto* button = new wxBitmapButton(
            this, wxID_ANY, wxBitmap(images[i].Scale(size.x, size.y, wxIMAGE_QUALITY_HIGH)),
            wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, source.GetDisplayName());
        button->SetToolTip(wxString::Format(
            _("%s: replaces the keys of the curve; its scaling and switches stay"), source.GetDisplayName()));
        button->Bind(wxEVT_BUTTON, [press, &source](wxCommandEvent&) { press(source); });
        grid->Add(button);
    }
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(title, wxSizerFlags().Border(wxBOTTOM, FromDIP(Spacing::kTight)));
    sizer->Add(grid);
    SetSizer(sizer);
}
