#pragma once

#include <wx/string.h>

#include <array>
#include <cstdint>
#include <vector>

/// The five bitmap fonts of GLUT. Their glyphs are part of the program (clsBitmapFontGlyphs.inc, made by
/// tools/make-bitmap-fonts.sh): freeglut itself starts only where there is a display, and text has to look
/// the same without one. Characters that the fonts lack are drawn as "?".
/// Threads: drawing on the thread of the context, everything else on any. Units: pixels.
class BitmapFont_cls {
  public:
    enum Font : unsigned int {
        kHelvetica10,
        kHelvetica12,
        kHelvetica18,
        kTimesRoman10,
        kTimesRoman24,
        kFonts
    };

    /// Every glyph pixel becomes a square of `scale` pixels, for large pictures.
    explicit BitmapFont_cls(Font font, int scale = 1);
    /// The font and scale that text in a picture of this height is legible in.
    static BitmapFont_cls ForHeight(int height);

    int GetWidth(const wxString& text) const;
    /// From one line to the next.
    int GetLineHeight() const;

    /// One line as bits, the top row first; the first column is where the text begins or what sticks out left
    /// of that.
    struct Raster_cls {
        int mLeft = 0;    ///< of the first column, from the beginning of the text
        int mBottom = 0;  ///< of the last row, from the base line
        int mWidth = 0;
        int mHeight = 0;
        std::vector<uint8_t> mBits{};  ///< 1 where there is ink, one byte a pixel
    };
    Raster_cls Rasterise(const wxString& text) const;

    /// Draws one line into the current context, beginning at this pixel of the base line, counted from the
    /// lower left corner of the frame buffer. Leaves the context's state as it was.
    void DrawOnGL(const wxString& text, int x, int y, const std::array<float, 3>& colour) const;

  private:
    Font mFont;
    int mScale;
};
