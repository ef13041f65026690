#include "gui/clsViewLayout.h"

#include <algorithm>

#include "render/clsPanelShared.h"

namespace ViewLayout {

namespace {

/// Two parts of a length with a gap between them; `first` of 100 goes to the first.
struct Parts {
    int first;
    int second;
    int secondStart;
};

Parts Divide(int length, int gap, int first = 50) {
    const int left = std::max((length - gap) * first / 100, 1);
    return {left, std::max(length - gap - left, 1), left + gap};
}

}  // namespace

const std::vector<wxString>& Names() {
    static const std::vector<wxString> names = {"1 panel", "2 panels (vertical)", "2 panels (horizontal)",
                                                "4 panelsA", "4 panelsB"};
    return names;
}

const std::vector<wxString>& Icons() {
    static const std::vector<wxString> icons = {"layout-1", "layout-2-vertical", "layout-2-horizontal",
                                                "layout-4a", "layout-4b"};
    return icons;
}

int Count(unsigned int layout) {
    switch (layout) {
        case PanelShared_cls::kTwoVertical:
        case PanelShared_cls::kTwoHorizontal:
            return 2;
        case PanelShared_cls::kFourA:
        case PanelShared_cls::kFourB:
            return 4;
        default:
            return 1;
    }
}

std::vector<wxRect> Places(unsigned int layout, const wxSize& area, int gap) {
    const int width = std::max(area.x, 1);
    const int height = std::max(area.y, 1);
    const Parts x = Divide(width, gap);
    const Parts y = Divide(height, gap);
    switch (layout) {
        case PanelShared_cls::kTwoVertical:
            return {{0, 0, x.first, height}, {x.secondStart, 0, x.second, height}};
        case PanelShared_cls::kTwoHorizontal:
            return {{0, 0, width, y.first}, {0, y.secondStart, width, y.second}};
        case PanelShared_cls::kFourA:
            return {{0, 0, x.first, y.first},
                    {x.secondStart, 0, x.second, y.first},
                    {0, y.secondStart, x.first, y.second},
                    {x.secondStart, y.secondStart, x.second, y.second}};
        case PanelShared_cls::kFourB: {
            // One large view and a column of three.
            const Parts large = Divide(width, gap, 67);
            const int third = std::max((height - 2 * gap) / 3, 1);
            const int last = std::max(height - 2 * (third + gap), 1);
            return {{0, 0, large.first, height},
                    {large.secondStart, 0, large.second, third},
                    {large.secondStart, third + gap, large.second, third},
                    {large.secondStart, 2 * (third + gap), large.second, last}};
        }
        default:
            return {{0, 0, width, height}};
    }
}

}  // namespace ViewLayout
