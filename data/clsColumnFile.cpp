#include "data/clsColumnFile.h"

#include <algorithm>

#include "data/clsColumnNames.h"
#include "data/clsSnapshotHeader.h"
#include "data/clsTextCursor.h"
#include "seam/clsTextCoding.h"

namespace {

constexpr int kMostHeaderLines = 8;

using Words = std::vector<std::string>;

bool AreNumbers(std::string_view line, size_t columns) {
    TextCursor_cls cursor(line);
    float value = 0.0F;
    for (size_t i = 0; i < columns; ++i) {
        if (!cursor.ReadFloat(&value)) return false;
    }
    return true;
}

/// The lines before the first record.
struct Top {
    std::vector<int> head;
    Words names;
    size_t columns = 0;
};

std::optional<Top> ReadTop(std::string_view text) {
    Top top;
    int numbersAlone = 0;
    // Empty lines and those that begin with "#" are skipped among the records; before a line of the header
    // they are lines of it too.
    size_t skipped = 0;
    int lines = 0;
    const auto add = [&](int code) {
        top.head.insert(top.head.end(), skipped, GrammerBase_cls::kHeadDummy);
        top.head.push_back(code);
        skipped = 0;
        ++lines;
    };
    while (lines < kMostHeaderLines && !text.empty()) {
        std::string_view line = TakeLine(&text);
        Words words = SplitWords(line);
        if (words.empty() || words[0].starts_with('#')) {
            ++skipped;
            if (words.empty()) continue;
            words[0].erase(0, words[0].find_first_not_of('#'));
            if (words[0].empty()) words.erase(words.begin());
            if (!CodesOfColumns(words).empty()) top.names = words;
            continue;
        }
        const bool isNumber = AreNumbers(line, words.size());
        if (isNumber && words.size() > 1) {
            top.columns = words.size();
            break;
        }
        if (isNumber && numbersAlone < 2) {
            ++numbersAlone;
            add(GrammerBase_cls::kNumber);
            continue;
        }
        if (!CodesOfColumns(words).empty()) top.names = words;
        add(GrammerBase_cls::kHeadDummy);
    }
    if (top.columns == 0) return std::nullopt;
    // Of two, the first is the time.
    if (numbersAlone == 2)
        *std::ranges::find(top.head, int{GrammerBase_cls::kNumber}) = GrammerBase_cls::kTime;
    // Names may stand for fewer columns than there are, not for more.
    if (top.names.size() > top.columns) top.names.clear();
    return top;
}

std::vector<int> BodyOf(const Top& top) {
    using Grammer = GrammerBase_cls;
    if (!top.names.empty()) return CodesOfColumns(top.names);
    switch (top.columns) {
        case 2:
            return {};
        case 3:
            return {Grammer::kXYZ};
        case 4:
        case 5:
            return {Grammer::kXYZ, Grammer::kValue1};
        case 6:
            return {Grammer::kXYZ, Grammer::kVelocity};
        case 10:
            return LoadPreset_cls::GetKnown().front().mBody;
        default:
            return {Grammer::kXYZ, Grammer::kVelocity, Grammer::kValue1};
    }
}

}  // namespace

FileKind_cls RecogniseColumns(const FileStart_cls& start) {
    FileKind_cls kind;
    const auto top = ReadTop(WithoutByteOrderMark(start.WholeLines()));
    const std::vector<int> body = top ? BodyOf(*top) : std::vector<int>();
    if (body.empty()) {
        kind.mWords =
            top ? "text, but no three columns of numbers for x, y, z" : "text, but no columns of numbers";
        return kind;
    }
    kind.mKind = FileKind_cls::kColumns;
    kind.mWords = wxString::Format("text, %zu columns", top->columns);
    for (const std::string& name : top->names)
        kind.mWords += (name == top->names[0] ? ": " : " ") + FromBytes(name);
    LoadPreset_cls preset{.mName = "Columns", .mText = true, .mHead = top->head, .mBody = body};
    const auto has = [&body](int code) { return std::ranges::find(body, code) != body.end(); };
    const bool hasTime = std::ranges::find(top->head, int{GrammerBase_cls::kTime}) != top->head.end();
    if (has(GrammerBase_cls::kVelocity) && hasTime) preset.mInterpolateType = DataLoader_cls::kHermite;
    if (has(GrammerBase_cls::kID)) preset.mVariableNumber = DataLoader_cls::kVariable;
    kind.mPreset = preset;
    return kind;
}
