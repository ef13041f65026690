#include "gui/clsNumberLimits.h"

#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/translation.h>

#include <charconv>
#include <cmath>

namespace {

constexpr double kAnyNumber = 1e30;
const wxColour kMarkColour(214, 48, 49);  // readable on light and on dark windows

}  // namespace

wxString NumberLimits_cls::Format(double value, bool whole) {
    char buffer[400];  // the longest double has 309 digits
    // Settings are floats: nine digits of a double would show what nobody typed.
    const auto result = whole ? std::to_chars(buffer, buffer + sizeof buffer, std::llround(value))
                              : std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(value));
    return wxString::FromAscii(buffer, static_cast<size_t>(result.ptr - buffer));
}

std::optional<double> NumberLimits_cls::Read(const wxString& text) const {
    const std::string bytes = text.Strip(wxString::both).ToStdString(wxConvUTF8);
    const char* const end = bytes.data() + bytes.size();
    double value = 0.0;
    const auto [stop, error] = std::from_chars(bytes.data(), end, value);
    const bool isNumber = error == std::errc() && stop == end && std::isfinite(value);
    if (!isNumber || value < min || value > max || (whole && value != std::floor(value))) return std::nullopt;
    return value;
}

wxString NumberLimits_cls::GetRange() const {
    if (min <= -kAnyNumber) return {};
    return max < kAnyNumber ? wxString::Format(_("%s to %s"), Format(min, whole), Format(max, whole))
                            : wxString::Format(_("%s or more"), Format(min, whole));
}

wxString NumberLimits_cls::GetWords() const {
    const wxString range = GetRange();
    return (whole ? _("whole number") : _("number")) + (range.empty() ? "" : ", " + range);
}

wxString NumberLimits_cls::DescribeFault(const wxString& text) const {
    const std::optional<double> value = NumberLimits_cls().Read(text);
    if (!value) return _("not a number");
    return *value < min || *value > max ? GetRange() : _("whole number");
}

void NumberLimits_cls::ShowMark(wxTextCtrl& text, wxStaticText& beside, bool wrong) const {
    // The place is small: the rest is in the tooltip.
    beside.SetLabel(wrong ? wxString::FromUTF8("\u26A0 ") + DescribeFault(text.GetValue()) : unit);
    beside.SetToolTip(wrong ? GetWords() : wxString());
    beside.SetForegroundColour(wrong ? kMarkColour : wxNullColour);
    text.SetForegroundColour(wrong ? kMarkColour : wxNullColour);
    text.Refresh();
}
