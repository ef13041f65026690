#pragma once

#include <wx/image.h>

class ColorCurve_cls;

/// A colour curve painted as a horizontal gradient, over a checkerboard where it is transparent. The editor,
/// the colour buttons and the template palette show curves by it.
struct GradientImage_cls {
    enum class Show {
        Effect,  ///< what particles get: the constant colour of a curve that is off
        Keys     ///< the curve itself, on or off
    };

    static constexpr int kSquare = 6;  ///< a square of the checkerboard in windows, for FromDIP()

    /// `square` is the size of the checkerboard's squares, in pixels of the image like width and height.
    static wxImage Make(const ColorCurve_cls& curve, Show show, int width, int height, int square);
};
