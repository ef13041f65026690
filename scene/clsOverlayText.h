#pragma once

#include <wx/string.h>

#include <array>

/// Words over the picture: messages at the upper left, the time at the lower left. Legible on any
/// background: light on dark ones, dark on light ones, with a seam in the other tone.
/// Threads: the thread of the context. Units: pixels of the whole target.
class OverlayText_cls {
  public:
    OverlayText_cls(int height, const std::array<float, 3>& background);

    void DrawTime(double time) const;
    /// One line below the other; those that do not fit are left out.
    void DrawMessage(const wxString& lines) const;
    /// At this place of the base line, from the lower left corner.
    void DrawLine(const wxString& text, int x, int y) const;

    /// "t = 3.2500": always five digits, so that the words stand still in a film.
    static wxString FormatTime(double time);

  private:
    int mHeight;
    std::array<float, 3> mInk;
    std::array<float, 3> mSeam;
};
