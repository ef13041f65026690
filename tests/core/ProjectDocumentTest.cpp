#include <gtest/gtest.h>

#include <charconv>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "core/clsMain.h"
#include "core/clsProjectFile.h"
#include "support/Lines.h"
#include "support/TempFolder.h"

namespace {

struct Entry_cls {
    std::string type;
    std::string value;
    bool operator==(const Entry_cls&) const = default;
};

/// Key, type and default of each row of the tables.
std::map<std::string, Entry_cls> ReadDocument() {
    const std::regex row("\\| `([^`]+=)` \\| ([^|]*) \\| ([^|]*)\\| ([^|]*)\\| ([^|]+) \\|");
    std::map<std::string, Entry_cls> entries;
    for (const std::string& line : Lines(ReadWholeFile(VARNHOLT_SOURCE_DIR "/docs/project-file.md"))) {
        std::smatch match;
        if (!std::regex_match(line, match, row)) continue;
        std::string value = match[3];
        while (value.ends_with(' ')) value.pop_back();
        EXPECT_TRUE(entries.emplace(match[1], Entry_cls{match[2], value}).second) << match[1] << " twice";
    }
    return entries;
}

/// "1 0.8 0" and "1.000000 0.800000 0.000000" are the same numbers.
std::string Plain(const std::string& value) {
    std::istringstream words(value);
    std::string plain;
    for (std::string word; words >> word;) {
        double number = 0.0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        const bool whole = error == std::errc() && end == word.data() + word.size();
        std::ostringstream text;
        if (whole)
            text << number;
        else
            text << word;
        plain += (plain.empty() ? "" : " ") + text.str();
    }
    return plain;
}

/// Whether the value of a written line can be of the type that the document gives.
bool Fits(const std::string& type, const std::string& value) {
    if (type == "switch") return value == "0" || value == "1";
    if (type == "float") return std::regex_match(value, std::regex("-?\\d+\\.\\d{6}"));
    if (type == "3 floats") return std::regex_match(value, std::regex("(-?\\d+\\.\\d{6} ?){3}"));
    if (type == "4 floats") return std::regex_match(value, std::regex("(-?\\d+\\.\\d{6} ?){4}"));
    if (type == "integer" || type == "unsigned") return std::regex_match(value, std::regex("\\d+"));
    if (type == "1 to 16 integers") return std::regex_match(value, std::regex("[\\d ]+"));
    return type.starts_with("text");
}

TEST(ProjectDocumentTest, ListsEveryKeyThatIsWrittenWithItsDefault) {
    const TempFolder_cls folder;
    Main_cls main(wxString::FromUTF8(folder.Path().string()));
    // Under this name the project does not become the last one opened.
    const std::string name = folder.File(ProjectFile_cls::kConfigName);
    ASSERT_EQ(main.SaveProjectFile(wxString::FromUTF8(name), true), 1);

    const auto document = ReadDocument();
    std::set<std::string> written;
    for (const std::string& line : Lines(ReadWholeFile(name))) {
        if (line.starts_with("-") || line.find('=') == std::string::npos) continue;
        std::string key = line.substr(0, line.find('=') + 1);
        if (!document.count(key)) {
            key = std::regex_replace(key, std::regex("^SEQ\\dTYPE\\d"), "SEQnTYPEm");
            key = std::regex_replace(key, std::regex("^(Panel|Light)\\d"), "$1n");
        }
        const auto entry = document.find(key);
        ASSERT_NE(entry, document.end()) << key << " is not documented";
        written.insert(key);
        const std::string value = line.substr(line.find('=') + 1);
        EXPECT_TRUE(Fits(entry->second.type, value)) << line << " is no " << entry->second.type;
        // Settings of groups differ from one to the next.
        const bool own =
            key == "dimension=" || key == "shyMode=" || key == "timeDepend=" || key == "periodic=";
        if (!own) {
            EXPECT_EQ(Plain(value), Plain(entry->second.value)) << key;
        }
    }
    for (const auto& [key, entry] : document) EXPECT_TRUE(written.count(key)) << key << " is never written";
}

}  // namespace
