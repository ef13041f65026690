#include "data/clsXyzFile.h"

#include <algorithm>
#include <charconv>

#include "data/clsColumnNames.h"
#include "data/clsSnapshotHeader.h"
#include "data/clsTextCursor.h"

namespace {

/// A line that holds one whole number and nothing else, as an XYZ file and each of its steps begin.
std::optional<int32_t> LoneCount(std::string_view line) {
    TextCursor_cls cursor(line);
    int32_t number = 0;
    if (!cursor.ReadInteger(&number) || number < 0 || !cursor.TakeWord().empty()) return std::nullopt;
    return number;
}

/// The value of key="..." or key=... in a comment.
std::string_view ValueOf(std::string_view comment, std::string_view key) {
    const size_t at = comment.find(key);
    if (at == std::string_view::npos) return {};
    std::string_view value = comment.substr(at + key.size());
    const bool quoted = value.starts_with('"');
    if (quoted) value.remove_prefix(1);
    return value.substr(0, value.find_first_of(quoted ? "\"" : " \t\r"));
}

/// "name:kind:count" threes, as names of columns that CodesOfColumns() knows. Words of properties are their
/// own: "pos" are the positions.
std::vector<std::string> ColumnsOf(std::string_view properties) {
    std::vector<std::string> parts;
    while (!properties.empty() && parts.size() < 100) {
        const size_t colon = std::min(properties.find(':'), properties.size());
        parts.emplace_back(properties.substr(0, colon));
        properties.remove_prefix(std::min(colon + 1, properties.size()));
    }
    std::vector<std::string> columns;
    for (size_t i = 0; i + 2 < parts.size(); i += 3) {
        const std::string& name = parts[i];
        unsigned int count = 0;
        const std::string& digits = parts[i + 2];
        std::from_chars(digits.data(), digits.data() + digits.size(), count);
        if (name == "pos" && count == 3) {
            columns.insert(columns.end(), {"x", "y", "z"});
        } else if ((name == "vel" || name == "velo" || name == "velocities") && count == 3) {
            columns.insert(columns.end(), {"vx", "vy", "vz"});
        } else {
            // Only single numbers can be a particle's value.
            const bool isValue = parts[i + 1] == "R" && count == 1;
            const bool isKnown = isValue || name == "id" || name == "type" || name == "species";
            columns.insert(columns.end(), std::min(count, 100U), isKnown ? name : "index");
        }
    }
    return columns;
}

std::vector<int> BodyOf(std::string_view comment) {
    const std::string_view properties = ValueOf(comment, "Properties=");
    std::vector<int> body = CodesOfColumns(ColumnsOf(properties));
    if (!body.empty()) return body;
    return {GrammerBase_cls::kType, GrammerBase_cls::kXYZ};
}

std::optional<LoadPreset_cls::Box> BoxOf(std::string_view comment) {
    const std::string lattice(ValueOf(comment, "Lattice="));
    TextCursor_cls cursor(lattice);
    std::array<float, 9> edges{};
    for (float& value : edges) {
        if (!cursor.ReadFloat(&value)) return std::nullopt;
    }
    const bool periodic = comment.find("pbc=") == std::string_view::npos ||
                          ValueOf(comment, "pbc=") == "T T T" || ValueOf(comment, "pbc=") == "T T F";
    if (!periodic) return std::nullopt;
    return LoadPreset_cls::Box{.space = ValueOf(comment, "pbc=") != "T T F",
                               .length = {edges[0], edges[4], edges[8]}};
}

bool IsRecord(std::string_view line) {
    TextCursor_cls cursor(line);
    float value = 0.0F;
    cursor.SkipWord();
    return cursor.ReadFloat(&value) && cursor.ReadFloat(&value) && cursor.ReadFloat(&value);
}

}  // namespace

std::optional<FileKind_cls> RecogniseXyz(const FileStart_cls& start) {
    std::string_view text = WithoutByteOrderMark(start.WholeLines());
    const auto count = LoneCount(TakeLine(&text));
    const std::string_view comment = TakeLine(&text);
    std::string_view rest = text;
    const std::string_view record = TakeLine(&rest);
    const bool isProperties = comment.find("Properties=") != std::string_view::npos;
    if (!count || *count == 0 || (!isProperties && !IsRecord(record))) return std::nullopt;
    // A column file that begins with time and count is none.
    if (LoneCount(comment) && !IsRecord(record)) return std::nullopt;

    FileKind_cls kind{
        .mKind = FileKind_cls::kXyz,
        .mWords = wxString::Format("XYZ, %d particles", *count),
        .mPreset = LoadPreset_cls{.mName = "XYZ",
                                  .mText = true,
                                  .mHead = {GrammerBase_cls::kNumber, GrammerBase_cls::kHeadDummy},
                                  .mBody = BodyOf(comment),
                                  .mBox = BoxOf(comment)}};
    if (std::ranges::find(kind.mPreset->mBody, GrammerBase_cls::kID) != kind.mPreset->mBody.end())
        kind.mPreset->mVariableNumber = DataLoader_cls::kVariable;

    const auto lineFeeds = std::ranges::count(text, '\n');
    const auto headerByte = static_cast<double>(start.WholeLines().size() - text.size());
    if (lineFeeds > 0) {
        kind.mStepByte = headerByte + static_cast<double>(*count) * static_cast<double>(text.size()) /
                                          static_cast<double>(lineFeeds);
    }
    // Less than another step behind the first is a blank line or a remark.
    kind.mHasManySteps = kind.mStepByte > 0.0 && static_cast<double>(start.mFileByte) > 1.5 * kind.mStepByte;
    return kind;
}
