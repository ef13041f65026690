#include "scene/clsOverlayText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "scene/clsBitmapFont.h"

namespace {

constexpr int kDigits = 5;

constexpr std::array<float, 3> kLight{0.86F, 0.88F, 0.92F};
constexpr std::array<float, 3> kDark{0.05F, 0.05F, 0.08F};

float Luminance(const std::array<float, 3>& c) {
    return 0.30F * c[0] + 0.59F * c[1] + 0.11F * c[2];
}

}  // namespace

OverlayText_cls::OverlayText_cls(int height, const std::array<float, 3>& background)
    : mHeight(height), mInk(kLight), mSeam(kDark) {
    if (Luminance(background) > 0.5F) std::swap(mInk, mSeam);
}

wxString OverlayText_cls::FormatTime(double time) {
    if (!std::isfinite(time)) return "t = ?";
    char text[64] = {};
    const auto print = [&](std::chars_format format, int precision) {
        const auto end = std::to_chars(text, text + sizeof text, time, format, precision).ptr;
        return std::string_view(text, static_cast<size_t>(end - text));
    };
    std::string_view digits = print(std::chars_format::scientific, kDigits - 1);
    const int exponent = std::atoi(digits.substr(digits.find('e') + 1).data());
    if (exponent >= -kDigits && exponent < kDigits)
        digits = print(std::chars_format::fixed, std::min(kDigits - 1 - exponent, 2 * kDigits - 2));
    return "t = " + wxString::FromAscii(digits.data(), digits.size());
}

void OverlayText_cls::DrawLine(const wxString& text, int x, int y) const {
    const BitmapFont_cls font = BitmapFont_cls::ForHeight(mHeight);
    font.DrawOnGL(text, x + 1, y - 1, mSeam);
    font.DrawOnGL(text, x, y, mInk);
}

void OverlayText_cls::DrawTime(double time) const {
    const int margin = BitmapFont_cls::ForHeight(mHeight).GetLineHeight() * 2 / 3;
    DrawLine(FormatTime(time), margin, margin);
}

void OverlayText_cls::DrawMessage(const wxString& lines) const {
    const int lineHeight = BitmapFont_cls::ForHeight(mHeight).GetLineHeight();
    int y = mHeight - lineHeight * 5 / 3;
    wxString rest = lines;
    while (!rest.empty() && y > 0) {
        DrawLine(rest.BeforeFirst('\n', &rest), lineHeight * 2 / 3, y);
        y -= lineHeight;
    }
}
