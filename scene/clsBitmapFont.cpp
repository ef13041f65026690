#include "scene/clsBitmapFont.h"

#include <algorithm>
#include <iterator>

#include "render/clsOpenGL.h"

namespace {

struct Glyph_cls {
    unsigned int code;
    int advance;
    int left;
    int bottom;
    int width;
    int height;
    const char* rows;  ///< from the top, two hexadecimal digits for eight pixels
};

/// All glyphs of one font after those of another, each by growing code.
constexpr Glyph_cls kGlyphs[] = {
#include "scene/clsBitmapFontGlyphs.inc"
};

constexpr size_t kGlyphsOfAFont = std::size(kGlyphs) / BitmapFont_cls::kFonts;

constexpr std::array<int, BitmapFont_cls::kFonts> kLineHeights = {13, 15, 23, 13, 29};

/// Larger text would be a picture of its own.
constexpr int kMaxScale = 16;
/// Longer lines fit no picture.
constexpr size_t kMaxCharacters = 1000;

const Glyph_cls& Find(BitmapFont_cls::Font font, unsigned int code) {
    const Glyph_cls* begin = kGlyphs + font * kGlyphsOfAFont;
    const Glyph_cls* end = begin + kGlyphsOfAFont;
    const auto at = [&](unsigned int wanted) {
        return std::lower_bound(begin, end, wanted,
                                [](const Glyph_cls& glyph, unsigned int c) { return glyph.code < c; });
    };
    const Glyph_cls* found = at(code);
    return found != end && found->code == code ? *found : *at('?');
}

bool HasInk(const Glyph_cls& glyph, int x, int row) {
    const int byte = row * ((glyph.width + 7) / 8) + x / 8;
    const char digit = glyph.rows[2 * byte + (x % 8 < 4 ? 0 : 1)];
    const int value = digit <= '9' ? digit - '0' : digit - 'a' + 10;
    return (value >> (3 - x % 4) & 1) != 0;
}

/// Glyph pixels, not scaled.
template <class Function>
void ForEachGlyph(BitmapFont_cls::Font font, const wxString& text, Function function) {
    int x = 0;
    size_t left = kMaxCharacters;
    for (const wxUniChar c : text) {
        if (left-- == 0) break;
        const Glyph_cls& glyph = Find(font, c.GetValue());
        function(glyph, x);
        x += glyph.advance;
    }
}

}  // namespace

BitmapFont_cls::BitmapFont_cls(Font font, int scale) : mFont(font), mScale(std::clamp(scale, 1, kMaxScale)) {}

BitmapFont_cls BitmapFont_cls::ForHeight(int height) {
    if (height < 320) return BitmapFont_cls(kHelvetica10);
    if (height < 640) return BitmapFont_cls(kHelvetica12);
    return BitmapFont_cls(kHelvetica18, height / 1080);
}

int BitmapFont_cls::GetWidth(const wxString& text) const {
    int width = 0;
    ForEachGlyph(mFont, text, [&](const Glyph_cls& glyph, int) { width += glyph.advance; });
    return width * mScale;
}

int BitmapFont_cls::GetLineHeight() const {
    return kLineHeights[mFont] * mScale;
}

BitmapFont_cls::Raster_cls BitmapFont_cls::Rasterise(const wxString& text) const {
    int left = 0;
    int right = 0;
    int bottom = 0;
    int top = 0;
    ForEachGlyph(mFont, text, [&](const Glyph_cls& glyph, int x) {
        left = std::min(left, x + glyph.left);
        right = std::max(right, x + glyph.left + glyph.width);
        bottom = std::min(bottom, glyph.bottom);
        top = std::max(top, glyph.bottom + glyph.height);
    });
    Raster_cls raster{.mLeft = left * mScale,
                      .mBottom = bottom * mScale,
                      .mWidth = (right - left) * mScale,
                      .mHeight = (top - bottom) * mScale};
    raster.mBits.resize(static_cast<size_t>(raster.mWidth) * static_cast<size_t>(raster.mHeight));
    const auto fill = [&](int x, int row) {
        for (int i = 0; i < mScale * mScale; ++i) {
            const int column = x * mScale + i % mScale;
            const int line = row * mScale + i / mScale;
            raster.mBits[static_cast<size_t>(line * raster.mWidth + column)] = 1;
        }
    };
    ForEachGlyph(mFont, text, [&](const Glyph_cls& glyph, int start) {
        for (int row = 0; row < glyph.height; ++row) {
            for (int x = 0; x < glyph.width; ++x) {
                if (HasInk(glyph, x, row))
                    fill(start + glyph.left + x - left, top - glyph.bottom - glyph.height + row);
            }
        }
    });
    return raster;
}

void BitmapFont_cls::DrawOnGL(const wxString& text, int x, int y, const std::array<float, 3>& colour) const {
    const Raster_cls raster = Rasterise(text);
    if (raster.mBits.empty()) return;
    const int rowBytes = (raster.mWidth + 7) / 8;
    std::vector<uint8_t> packed(static_cast<size_t>(rowBytes) * static_cast<size_t>(raster.mHeight));
    for (int row = 0; row < raster.mHeight; ++row) {
        // OpenGL's first row is the lowest.
        const int target = raster.mHeight - 1 - row;
        for (int column = 0; column < raster.mWidth; ++column) {
            if (raster.mBits[static_cast<size_t>(row * raster.mWidth + column)] == 0) continue;
            uint8_t& byte = packed[static_cast<size_t>(target * rowBytes + column / 8)];
            byte = static_cast<uint8_t>(byte | 0x80 >> column % 8);
        }
    }
    glPushAttrib(GL_CURRENT_BIT | GL_ENABLE_BIT | GL_TEXTURE_BIT);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    for (const GLenum off : {GL_LIGHTING, GL_DEPTH_TEST, GL_BLEND, GL_TEXTURE_2D, GL_FOG, GL_ALPHA_TEST})
        glDisable(off);
    glColor3fv(colour.data());  // before the position, which takes it over
    glWindowPos2i(x, y);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glBitmap(raster.mWidth, raster.mHeight, static_cast<GLfloat>(-raster.mLeft),
             static_cast<GLfloat>(-raster.mBottom), 0.0F, 0.0F, packed.data());
    glPopClientAttrib();
    glPopAttrib();
}
