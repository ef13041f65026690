#include "timeline/clsKeyClipboard.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"

namespace {

constexpr std::string_view kHeader = "VarnholtKeys";
constexpr std::string_view kRow = "itemnum ";

}  // namespace

wxString KeyClipboard_cls::Write(const Rows& rows) {
    std::string text(kHeader);
    text += '\n';
    for (const std::vector<KeyFrame_cls>& row : rows) {
        text += std::string(kRow) + std::to_string(row.size()) + '\n';
        for (const KeyFrame_cls& key : row) key.SerializeExact(text);
    }
    return wxString::FromAscii(text.data(), text.size());
}

KeyClipboard_cls::Rows KeyClipboard_cls::Read(const wxString& text) {
    LineStream_cls stream(ToBytes(text));
    Rows rows;
    std::string_view line;
    if (!stream.ReadLine(line) || !line.starts_with(kHeader)) return rows;

    while (stream.ReadLine(line)) {
        KeyFrame_cls key;
        if (line.starts_with(kRow)) {
            rows.emplace_back();
        } else if (!rows.empty() && key.ReadStrLine(line)) {
            key.mSelected = true;
            rows.back().push_back(key);
        }
    }
    for (std::vector<KeyFrame_cls>& row : rows)
        std::stable_sort(row.begin(), row.end(), [](const auto& a, const auto& b) { return b > a; });
    return rows;
}

double KeyClipboard_cls::GetFirstTime(const Rows& rows) {
    double first = std::numeric_limits<double>::infinity();
    for (const std::vector<KeyFrame_cls>& row : rows) {
        if (!row.empty()) first = std::min(first, row.front().mTime);
    }
    return std::isfinite(first) ? first : 0.0;
}
