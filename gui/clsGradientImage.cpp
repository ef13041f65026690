#include "gui/clsGradientImage.h"

#include <algorithm>
#include <array>

#include "render/clsColorCurve.h"
#include "render/clsColorCurveEdit.h"

namespace {

constexpr unsigned char kLight = 200;
constexpr unsigned char kDark = 130;

using Pixel = std::array<unsigned char, 3>;

Pixel Over(const Color4& color, unsigned char background) {
    Pixel pixel{};
    for (size_t k = 0; k < 3; ++k) {
        const float below = background;
        const float shown =
            below + (255.0F * std::clamp(color[k], 0.0F, 1.0F) - below) * std::clamp(color[3], 0.0F, 1.0F);
        pixel[k] = static_cast<unsigned char>(shown);
    }
    return pixel;
}

}  // namespace

wxImage GradientImage_cls::Make(const ColorCurve_cls& curve, Show show, int width, int height, int square) {
    const int columns = std::max(width, 1);
    const int rows = std::max(height, 1);
    wxImage image(columns, rows, false);
    unsigned char* const pixels = image.GetData();
    for (int x = 0; x < columns; ++x) {
        const double position = columns > 1 ? static_cast<double>(x) / (columns - 1) : 0.0;
        Color4 color{};
        if (show == Show::Keys) {
            color = ColorCurveEdit_cls::GetColor(curve, position);
        } else {
            curve.GetColor4fNormal(color.data(), static_cast<float>(position));
        }
        const std::array squares = {Over(color, kLight), Over(color, kDark)};
        for (int y = 0; y < rows; ++y) {
            const auto which = static_cast<size_t>((x / square + y / square) % 2);
            std::copy_n(squares[which].begin(), 3,
                        pixels + 3 * (static_cast<size_t>(y) * static_cast<size_t>(columns) +
                                      static_cast<size_t>(x)));
        }
    }
    return image;
}
