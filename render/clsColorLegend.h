#pragma once

#include <wx/string.h>

#include <vector>

#include "render/clsColorCurve.h"

/// What the legend of a colour curve shows: the bar's colours and the numbers beside it. Computed only, for
/// any surface to draw.
/// Threads: GUI thread. Units: positions 0 to 1 along the bar, values those of the data.
struct ColorLegend_cls {
    struct Tick {
        float position;
        wxString text;
    };

    /// What the curve depends on and its unit, e.g. "Velocity [km/s]"; only the quantity without a unit.
    wxString title;
    /// Four floats a step, from position 0 to 1.
    std::vector<float> colors;
    /// Round numbers in the curve's range.
    std::vector<Tick> ticks;

    /// A curve that is off, or depends on nothing known, has no legend: all of it is empty.
    static ColorLegend_cls Of(const ColorCurve_cls& curve, const wxString& unit, size_t steps, int maxTicks);
};
