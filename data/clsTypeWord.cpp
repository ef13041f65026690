#include "data/clsTypeWord.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

/// By atomic number, from 1.
constexpr std::array<std::string_view, 118> kElements = {
    "h",  "he", "li", "be", "b",  "c",  "n",  "o",  "f",  "ne", "na", "mg", "al", "si", "p",  "s",  "cl",
    "ar", "k",  "ca", "sc", "ti", "v",  "cr", "mn", "fe", "co", "ni", "cu", "zn", "ga", "ge", "as", "se",
    "br", "kr", "rb", "sr", "y",  "zr", "nb", "mo", "tc", "ru", "rh", "pd", "ag", "cd", "in", "sn", "sb",
    "te", "i",  "xe", "cs", "ba", "la", "ce", "pr", "nd", "pm", "sm", "eu", "gd", "tb", "dy", "ho", "er",
    "tm", "yb", "lu", "hf", "ta", "w",  "re", "os", "ir", "pt", "au", "hg", "tl", "pb", "bi", "po", "at",
    "rn", "fr", "ra", "ac", "th", "pa", "u",  "np", "pu", "am", "cm", "bk", "cf", "es", "fm", "md", "no",
    "lr", "rf", "db", "sg", "bh", "hs", "mt", "ds", "rg", "cn", "nh", "fl", "mc", "lv", "ts", "og"};
constexpr int32_t kTypes = 4;

bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

}  // namespace

bool TypeWord_cls::Read(TextCursor_cls* line, int32_t* type) {
    *type = 0;
    TextCursor_cls here = *line;
    if (line->ReadInteger(type)) return true;
    // Names are few and short: what counts here is that numbers are read the quick way.
    const std::string_view word = here.TakeWord();
    if (word.empty() || !IsLetter(word.front())) return false;
    *type = TypeOf(word);
    return true;
}

int32_t TypeWord_cls::TypeOf(std::string_view name) {
    std::array<char, 2> letters{};
    const auto end = std::ranges::find_if_not(name, IsLetter);
    const auto length = static_cast<size_t>(end - name.begin());
    if (length > letters.size()) return 0;
    std::ranges::transform(name.substr(0, length), letters.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto found = std::ranges::find(kElements, std::string_view(letters.data(), length));
    return found == kElements.end() ? 0 : static_cast<int32_t>(found - kElements.begin() + 1) % kTypes;
}
