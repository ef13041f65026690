#include "render/clsFirstLook.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "interp/clsSnapData.h"
#include "render/clsFitToData.h"
#include "render/clsGLAttribute.h"

namespace {

/// Up to so many particles are told apart, one by one.
constexpr double kFew = 20000;
/// Radius of a ball, of the mean distance to its neighbours.
constexpr double kBall = 0.25;
/// Points of a crowd: size in pixels at the height of 720, and the mean light where particles are.
constexpr double kPoint = 2.0;
constexpr double kLight = 0.22;
/// The part of the picture that particles cover when the camera is fitted to them.
constexpr double kCovered = 0.3;

constexpr std::array<std::array<double, 3>, 4> kTypeColours = {
    {{1.0, 0.77, 0.47}, {0.43, 0.69, 1.0}, {1.0, 0.47, 0.35}, {0.59, 0.92, 0.84}}};

/// With the digits that a project keeps, so that it looks the same when it is opened again; numbers of which
/// those would leave little have all theirs.
wxString Number(double value) {
    char text[32];
    const bool isUsual = value > 1e-3 && value < 1e6;
    const auto end = (isUsual ? std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6)
                              : std::to_chars(text, text + sizeof text, static_cast<float>(value)))
                         .ptr;
    return wxString::FromAscii(text, static_cast<size_t>(end - text));
}

wxString Colour(const std::array<double, 3>& colour, double factor) {
    wxString text;
    for (const double channel : colour) text += Number(channel * factor) + " ";
    return text + "1";
}

}  // namespace

std::vector<wxString> SuggestLook(const SnapData_cls& state, int height, const std::vector<wxString>& given) {
    std::vector<wxString> lines;
    const double count = std::max(1.0, static_cast<double>(state.GetCount()) / state.GetStride());
    const double pixels = static_cast<double>(height) * height * kCovered;
    const double size = std::max(1.0, std::round(kPoint * height / 720.0));
    const double alpha = std::clamp(kLight * pixels / (count * size * size), 0.02, 1.0);
    const auto stride = static_cast<size_t>(state.GetStride());
    const double spread =
        DataBounds_cls::Of({state.GetPosition(), 3 * static_cast<size_t>(state.GetCount())}, stride).mRadius;
    // A ball of so many particles: this far from one to the next.
    const double distance = spread * std::cbrt(4.0 / count);
    for (size_t type = 0; type < kTypeColours.size(); ++type) {
        const auto set = [&](const char* key, const wxString& value) {
            const wxString name = wxString::Format("SEQ0TYPE%zu%s=", type, key);
            const bool isGiven = std::any_of(given.begin(), given.end(),
                                             [&](const wxString& line) { return line.StartsWith(name); });
            if (!isGiven) lines.push_back(name + value);
        };
        const auto& colour = kTypeColours[type];
        set("ColConstantColor", Colour(colour, 1.0));
        if (count <= kFew) {
            set("DrawType", "2");
            set("DrawQuality", "3");
            set("RadiusType", "1");
            set("RadiusFactorForConst", Number(kBall * distance));
            set("AmbientConstantColor", Colour(colour, 0.25));
            set("DiffuseConstantColor", Colour(colour, 0.9));
            set("SpecularConstantColor", "0.25 0.25 0.25 1");
        } else {
            set("BlendType", "1");
            set("PointSize", wxString::Format("%d", static_cast<int>(size)));
            set("AlphaFactro", Number(alpha));
        }
    }
    return lines;
}
