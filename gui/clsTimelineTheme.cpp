#include "gui/clsTimelineTheme.h"

#include <wx/settings.h>
#include <wx/window.h>

#include <algorithm>

#include "timeline/clsKeyFrame.h"

namespace {

/// The first colour with a share of the second.
wxColour Mix(const wxColour& a, const wxColour& b, double share) {
    const auto mix = [share](int x, int y) { return static_cast<unsigned char>(x + share * (y - x)); };
    return {mix(a.Red(), b.Red()), mix(a.Green(), b.Green()), mix(a.Blue(), b.Blue())};
}

}  // namespace

TimelineTheme_cls::TimelineTheme_cls(const wxWindow& window) {
    background = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    mDark = background.GetLuminance() < 0.5;
    text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    panel = wxSystemSettings::GetColour(wxSYS_COLOUR_FRAMEBK);
    const wxColour accent = mDark ? wxColour(92, 160, 235) : wxColour(40, 105, 190);
    outside = Mix(background, panel, 0.85);
    current = Mix(background, accent, 0.12);
    line = Mix(background, text, 0.22);
    grid = Mix(background, text, 0.08);
    faintText = Mix(background, text, 0.6);
    key = Mix(text, accent, 0.8);
    selectedKey = mDark ? wxColour(255, 176, 64) : wxColour(232, 126, 4);
    workArea = accent;
    activeArea = Mix(background, text, 0.38);
    cursor = mDark ? wxColour(255, 98, 88) : wxColour(214, 48, 40);

    font = window.GetFont();
    smallFont = font.Smaller();
    const int letter = window.GetCharHeight();
    rowHeight = letter + window.FromDIP(6);
    barHeight = std::max(window.FromDIP(7), letter / 2);
    rulerHeight = 2 * barHeight + letter + window.FromDIP(8);
    keySize = std::max(window.FromDIP(4), letter / 4 + 1);
    indent = letter;
}

wxColour TimelineTheme_cls::GetComponentColour(int i) const {
    const wxColour light[] = {{208, 52, 44}, {34, 139, 58}, {44, 98, 200}, {140, 90, 180}};
    const wxColour dark[] = {{255, 112, 100}, {106, 206, 116}, {110, 162, 255}, {205, 150, 245}};
    return mDark ? dark[i % 4] : light[i % 4];
}

void TimelineTheme_cls::AddKey(wxGraphicsPath& path, double x, double y, unsigned int type) const {
    const double s = keySize;
    switch (type) {
        case KeyFrame_cls::kHermiteAuto:
            path.AddCircle(x, y, s * 0.92);
            break;
        case KeyFrame_cls::kHermiteSemiAuto:
            path.AddCircle(x, y, s * 0.92);
            path.AddCircle(x, y, s * 0.5);
            break;
        case KeyFrame_cls::kHermite:
            path.MoveToPoint(x - s, y - s);
            path.AddLineToPoint(x + s, y - s);
            path.AddLineToPoint(x - s, y + s);
            path.AddLineToPoint(x + s, y + s);
            path.CloseSubpath();
            break;
        case KeyFrame_cls::kStep:
            path.AddRectangle(x - s * 0.85, y - s * 0.85, s * 1.7, s * 1.7);
            break;
        default:
            path.MoveToPoint(x, y - s * 1.2);
            path.AddLineToPoint(x + s * 1.2, y);
            path.AddLineToPoint(x, y + s * 1.2);
            path.AddLineToPoint(x - s * 1.2, y);
            path.CloseSubpath();
    }
}
