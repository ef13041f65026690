#include "scene/clsLegendBar.h"

#include <algorithm>
#include <cmath>

#include "render/clsGLPerspective.h"
#include "render/clsOpenGL.h"
#include "scene/clsBitmapFont.h"
#include "scene/clsOverlayText.h"

namespace {

/// Of a number's line, so that numbers stand apart.
constexpr int kLinesPerTick = 2;
constexpr int kMaxTicks = 9;

}  // namespace

int LegendBar_cls::GetMaxTicks() const {
    const int line = BitmapFont_cls::ForHeight(mHeight).GetLineHeight();
    return std::clamp(GetBarHeight() / (kLinesPerTick * line), 2, kMaxTicks);
}

void LegendBar_cls::Draw(const ColorLegend_cls& legend, const OverlayText_cls& text) const {
    if (legend.colors.empty()) return;
    const BitmapFont_cls font = BitmapFont_cls::ForHeight(mHeight);
    const int line = font.GetLineHeight();
    const int left = mWidth - 2 * line;
    const int bottom = (mHeight - GetBarHeight()) / 2;
    const int titleLeft = mWidth - line - font.GetWidth(legend.title);
    if (titleLeft < 0 || bottom < line) return;
    DrawBar(legend, left, bottom, line);
    text.DrawLine(legend.title, titleLeft, bottom + GetBarHeight() + line * 2 / 3);
    for (const ColorLegend_cls::Tick& tick : legend.ticks) {
        const int y =
            bottom + static_cast<int>(std::lround(tick.position * static_cast<float>(GetBarHeight())));
        text.DrawLine(tick.text, left - line / 2 - font.GetWidth(tick.text), y - line / 4);
    }
}

void LegendBar_cls::DrawBar(const ColorLegend_cls& legend, int left, int bottom, int width) const {
    const size_t steps = legend.colors.size() / 4;
    glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT);
    for (const GLenum off : {GL_DEPTH_TEST, GL_LIGHTING, GL_TEXTURE_2D, GL_FOG, GL_BLEND}) glDisable(off);
    GLPerspective_cls::Push2DMatrix(mWidth, mHeight);
    glBegin(GL_QUAD_STRIP);
    for (size_t i = 0; i < steps; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(steps - 1);
        const double y = bottom + part * GetBarHeight();
        glColor3fv(&legend.colors[4 * i]);
        glVertex2d(left, y);
        glVertex2d(left + width, y);
    }
    glEnd();
    GLPerspective_cls::Pop2DMatrix();
    glPopAttrib();
}
