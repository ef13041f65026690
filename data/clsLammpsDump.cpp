#include "data/clsLammpsDump.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "data/clsColumnNames.h"
#include "data/clsSnapshotHeader.h"
#include "data/clsTextCursor.h"
#include "seam/clsTextCoding.h"

namespace {

constexpr std::string_view kItem = "ITEM: ";
constexpr std::string_view kUnits = "ITEM: UNITS";
constexpr std::string_view kTime = "ITEM: TIME";
constexpr std::string_view kStep = "ITEM: TIMESTEP";

/// The header of one step, as far as "ITEM: ATOMS".
struct Header {
    std::vector<int> codes;
    std::vector<std::string> columns;
    std::optional<LoadPreset_cls::Box> box;
    wxString boxWords;
    long long atoms = 0;
    bool hasTime = false;
    size_t byte = 0;
};

using Box = LoadPreset_cls::Box;

/// A side of a sheared box is given by its bounds; what the shear adds to them lies between `least` and
/// `most`.
float EdgeLength(const std::vector<float>& bounds, float least, float most) {
    return (bounds[1] - most) - (bounds[0] - least);
}

std::optional<std::array<float, 3>> Lengths(const std::array<std::vector<float>, 3>& lines, bool isSheared,
                                            bool isGeneral) {
    const size_t wanted = isGeneral ? 4 : isSheared ? 3 : 2;
    for (const auto& line : lines) {
        if (line.size() < wanted) return std::nullopt;
    }
    if (isGeneral) return std::array{lines[0][0], lines[1][1], lines[2][2]};
    if (!isSheared) {
        return std::array{lines[0][1] - lines[0][0], lines[1][1] - lines[1][0], lines[2][1] - lines[2][0]};
    }
    const float xy = lines[0][2];
    const float xz = lines[1][2];
    const float yz = lines[2][2];
    return std::array{
        EdgeLength(lines[0], std::min({0.0F, xy, xz, xy + xz}), std::max({0.0F, xy, xz, xy + xz})),
        EdgeLength(lines[1], std::min(0.0F, yz), std::max(0.0F, yz)), lines[2][1] - lines[2][0]};
}

void ReadBox(const std::vector<std::string>& words, std::string_view* text, Header* header) {
    std::array<std::vector<float>, 3> lines;
    for (auto& line : lines) {
        TextCursor_cls cursor(TakeLine(text));
        for (float value = 0.0F; cursor.ReadFloat(&value);) line.push_back(value);
        header->codes.push_back(GrammerBase_cls::kHeadDummy);
    }
    const auto has = [&words](const char* word) { return std::ranges::find(words, word) != words.end(); };
    const auto lengths = Lengths(lines, has("xy"), has("abc"));
    if (!lengths || words.size() < 3) return;
    header->boxWords =
        wxString::Format("box %g x %g x %g", static_cast<double>((*lengths)[0]),
                         static_cast<double>((*lengths)[1]), static_cast<double>((*lengths)[2]));
    // "pp" is periodic on both sides; only the plane and all of space can be treated so.
    const bool x = words[words.size() - 3] == "pp";
    const bool y = words[words.size() - 2] == "pp";
    const bool z = words.back() == "pp";
    if (x && y) header->box = Box{.space = z, .length = *lengths};
}

/// Steps over the lines of an item that tells nothing here.
void SkipItem(std::string_view* text, Header* header) {
    while (!text->empty() && !text->starts_with(kItem) &&
           header->codes.size() <= ConfArray_cls::kMaxDimension) {
        TakeLine(text);
        header->codes.push_back(GrammerBase_cls::kHeadDummy);
    }
}

/// Takes the one line under the item as a value with the code.
std::string_view TakeValue(int code, std::string_view* text, Header* header) {
    header->codes.push_back(code);
    return TakeLine(text);
}

std::optional<Header> ReadHeader(std::string_view text) {
    const size_t before = text.size();
    Header header;
    size_t stepCode = 0;
    while (text.starts_with(kItem) && header.codes.size() < ConfArray_cls::kMaxDimension) {
        const std::vector<std::string> words = SplitWords(TakeLine(&text).substr(kItem.size()));
        header.codes.push_back(GrammerBase_cls::kHeadDummy);
        if (words.empty()) return std::nullopt;
        if (words[0] == "ATOMS") {
            header.columns.assign(words.begin() + 1, words.end());
            header.byte = before - text.size();
            if (header.codes.size() > ConfArray_cls::kMaxDimension) return std::nullopt;
            return header;
        }
        if (words[0] == "TIMESTEP") {
            stepCode = header.codes.size();
            TakeValue(header.hasTime ? GrammerBase_cls::kHeadDummy : GrammerBase_cls::kTime, &text, &header);
        } else if (words[0] == "TIME") {
            // The run's own time rather than the number of the step.
            if (stepCode > 0) header.codes[stepCode] = GrammerBase_cls::kHeadDummy;
            header.hasTime = true;
            TakeValue(GrammerBase_cls::kTime, &text, &header);
        } else if (words[0] == "NUMBER") {
            const std::string_view line = TakeValue(GrammerBase_cls::kNumber, &text, &header);
            std::from_chars(line.data(), line.data() + line.size(), header.atoms);
        } else if (words[0] == "BOX") {
            ReadBox(words, &text, &header);
        } else {
            SkipItem(&text, &header);
        }
    }
    return std::nullopt;
}

bool HasColumn(const std::vector<std::string>& columns, const char* name) {
    return std::ranges::find(columns, name) != columns.end();
}

LoadPreset_cls PresetOf(const Header& header, const std::vector<int>& body) {
    LoadPreset_cls preset{.mName = "LAMMPS dump", .mText = true, .mHead = header.codes, .mBody = body};
    const bool hasVelocity = std::ranges::find(body, GrammerBase_cls::kVelocity) != body.end();
    // Velocities are per unit of the run's time: of no use where the steps' numbers are the time.
    if (hasVelocity && header.hasTime) preset.mInterpolateType = DataLoader_cls::kHermite;
    // Atoms change their order from step to step.
    if (HasColumn(header.columns, "id")) preset.mVariableNumber = DataLoader_cls::kVariable;
    const bool isWrapped = HasColumn(header.columns, "x") || HasColumn(header.columns, "xs");
    preset.mBox = isWrapped ? header.box : std::nullopt;
    // Positions given in parts of the box.
    if (preset.mBox && HasColumn(header.columns, "xs")) preset.mBox->length.fill(1.0F);
    return preset;
}

/// One step fills a good part of the file or there are several. Numbers that grow make lines longer: by less
/// than half.
void JudgeSteps(const FileStart_cls& start, const Header& header, FileKind_cls* kind) {
    const std::string_view lines = start.WholeLines();
    const std::string_view body = lines.substr(std::min(header.byte, lines.size()));
    const auto lineFeeds = static_cast<double>(std::ranges::count(body, '\n'));
    if (lineFeeds > 0.0) {
        kind->mStepByte = static_cast<double>(header.byte) +
                          static_cast<double>(header.atoms) * static_cast<double>(body.size()) / lineFeeds;
    }
    const std::string_view stepLine = LammpsStepLine(lines);
    kind->mHasManySteps =
        body.find(std::string("\n").append(stepLine)) != std::string_view::npos ||
        (header.atoms == 0 && body.starts_with(stepLine)) ||
        (kind->mStepByte > 0.0 && static_cast<double>(start.mFileByte) > 1.5 * kind->mStepByte);
}

}  // namespace

std::string_view LammpsStepLine(std::string_view text) {
    if (text.starts_with(kUnits)) {
        TakeLine(&text);
        TakeLine(&text);
    }
    if (text.starts_with(kStep)) return kStep;
    return text.starts_with(kTime) ? kTime : std::string_view();
}

std::optional<FileKind_cls> RecogniseLammpsDump(const FileStart_cls& start) {
    const std::string_view text = WithoutByteOrderMark(start.mBytes);
    if (LammpsStepLine(text).empty()) return std::nullopt;
    FileKind_cls kind{.mKind = FileKind_cls::kLammpsDump, .mWords = "LAMMPS dump", .mPreset = std::nullopt};
    const auto header = ReadHeader(text);
    if (!header) {
        kind.mWords += " without atoms: the file ends inside its header";
        return kind;
    }
    kind.mWords += wxString::Format(", %lld atoms:", header->atoms);
    for (const std::string& column : header->columns) kind.mWords += " " + FromBytes(column);
    if (!header->boxWords.empty()) kind.mWords += "; " + header->boxWords;
    if (header->box) kind.mWords += header->box->space ? ", periodic" : ", periodic in x and y";
    const std::vector<int> body = CodesOfColumns(header->columns);
    if (body.empty()) {
        kind.mWords += "; no columns x, y, z side by side: it has no positions to show";
    } else {
        kind.mPreset = PresetOf(*header, body);
    }
    JudgeSteps(start, *header, &kind);
    return kind;
}
