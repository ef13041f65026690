#include "data/clsColumnNames.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "data/clsGrammerBase.h"

namespace {

using Grammer = GrammerBase_cls;
using Names = std::vector<std::string>;

constexpr std::array<std::array<const char*, 3>, 7> kPositions = {{{"x", "y", "z"},
                                                                   {"xu", "yu", "zu"},
                                                                   {"xs", "ys", "zs"},
                                                                   {"xsu", "ysu", "zsu"},
                                                                   {"posx", "posy", "posz"},
                                                                   {"pos_x", "pos_y", "pos_z"},
                                                                   {"coordx", "coordy", "coordz"}}};
constexpr std::array<std::array<const char*, 3>, 3> kVelocities = {
    {{"vx", "vy", "vz"}, {"velx", "vely", "velz"}, {"vel_x", "vel_y", "vel_z"}}};
constexpr std::array kRadii = {"radius", "r", "softening", "eps", "hsml"};
constexpr std::array kIDs = {"id", "ids", "particleid"};
constexpr std::array kTypes = {"type"};
constexpr std::array kElements = {"element", "species"};
constexpr std::array kValues = {"value1", "value", "density", "rho", "temperature", "temp"};
/// Not worth a colour, or words: never taken as value1 unasked.
constexpr std::array kNoValues = {"index", "element", "mol", "proc", "procp1", "ix",     "iy", "iz",
                                  "xu",    "yu",      "zu",  "x",    "y",      "z",      "xs", "ys",
                                  "zs",    "vx",      "vy",  "vz",   "name",   "species"};

std::string Lower(std::string word) {
    std::ranges::transform(word, word.begin(), [](unsigned char c) { return std::tolower(c); });
    return word;
}

template <class List>
bool IsOneOf(const std::string& word, const List& list) {
    return std::ranges::find(list, word) != list.end();
}

/// Marks the first place where one of the threesomes stands side by side.
template <class Triples>
bool MarkTriple(const Names& names, const Triples& triples, int code, std::vector<int>* codes) {
    for (const auto& triple : triples) {
        const auto at = std::ranges::search(names, triple);
        if (at.empty()) continue;
        const auto first = static_cast<size_t>(at.begin() - names.begin());
        (*codes)[first] = code;
        // Taken up by the code before them.
        (*codes)[first + 1] = (*codes)[first + 2] = Grammer::kLastBodyCode + 1;
        return true;
    }
    return false;
}

template <class Fits>
bool MarkFirst(const Names& names, int code, std::vector<int>* codes, const Fits& fits) {
    for (size_t i = 0; i < names.size(); ++i) {
        if ((*codes)[i] != Grammer::kDummy || !fits(names[i])) continue;
        (*codes)[i] = code;
        return true;
    }
    return false;
}

void AddDummies(size_t count, std::vector<int>* codes) {
    for (; count >= 10; count -= 10) codes->push_back(Grammer::kDummy10);
    for (; count >= 3; count -= 3) codes->push_back(Grammer::kDummy3);
    for (; count > 0; --count) codes->push_back(Grammer::kDummy);
}

/// Runs of dummies become few codes, those at the end none.
std::vector<int> Shorten(const std::vector<int>& codes) {
    std::vector<int> result;
    size_t dummies = 0;
    for (const int code : codes) {
        if (code == Grammer::kDummy) {
            ++dummies;
        } else if (code <= Grammer::kLastBodyCode) {
            AddDummies(dummies, &result);
            dummies = 0;
            result.push_back(code);
        }
    }
    return result;
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view line) {
    std::vector<std::string> words;
    constexpr std::string_view kSeparators = " \t\r,;";
    for (size_t begin = line.find_first_not_of(kSeparators); begin != std::string_view::npos;) {
        const size_t end = std::min(line.find_first_of(kSeparators, begin), line.size());
        words.emplace_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(kSeparators, end);
    }
    return words;
}

std::vector<int> CodesOfColumns(const std::vector<std::string>& names) {
    Names lower;
    for (const std::string& name : names) lower.push_back(Lower(name));
    std::vector<int> codes(lower.size(), Grammer::kDummy);
    if (!MarkTriple(lower, kPositions, Grammer::kXYZ, &codes)) return {};
    MarkTriple(lower, kVelocities, Grammer::kVelocity, &codes);
    MarkFirst(lower, Grammer::kRadius, &codes, [](const auto& name) { return IsOneOf(name, kRadii); });
    MarkFirst(lower, Grammer::kID, &codes, [](const auto& name) { return IsOneOf(name, kIDs); });
    // The names of elements tell types, too.
    if (!MarkFirst(lower, Grammer::kType, &codes, [](const auto& name) { return IsOneOf(name, kTypes); }))
        MarkFirst(lower, Grammer::kType, &codes, [](const auto& name) { return IsOneOf(name, kElements); });
    // A simulation's computed values bear these prefixes.
    const auto isComputed = [](const auto& name) {
        return IsOneOf(name, kValues) || name.starts_with("c_") || name.starts_with("v_") ||
               name.starts_with("f_");
    };
    const auto mayBeValue = [](const auto& name) { return !IsOneOf(name, kNoValues); };
    if (!MarkFirst(lower, Grammer::kValue1, &codes, isComputed))
        MarkFirst(lower, Grammer::kValue1, &codes, mayBeValue);

    std::vector<int> result = Shorten(codes);
    // What makes the list too long goes first: a value for colours.
    while (result.size() > ConfArray_cls::kMaxDimension && result.back() != Grammer::kXYZ) result.pop_back();
    return result.size() <= ConfArray_cls::kMaxDimension ? result : std::vector<int>();
}
