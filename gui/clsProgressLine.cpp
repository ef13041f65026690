#include "gui/clsProgressLine.h"

#include <wx/dcclient.h>
#include <wx/settings.h>

#include <algorithm>

ProgressLine_cls::ProgressLine_cls(wxWindow* parent, const wxSize& size)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, size) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxPaintDC dc(this);
        const wxSize whole = GetClientSize();
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW)));
        dc.DrawRectangle(whole);
        dc.SetBrush(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)));
        dc.DrawRectangle(0, 0, whole.x * mPercentage / 100, whole.y);
    });
}

void ProgressLine_cls::SetValue(int percentage) {
    const int value = std::clamp(percentage, 0, 100);
    if (value == mPercentage) return;
    mPercentage = value;
    Refresh(false);
}
