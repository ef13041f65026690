#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>

#include "core/clsMain.h"
#include "core/clsProjectFile.h"
#include "support/Lines.h"
#include "support/TempFolder.h"

namespace {

struct Entry_cls {
    std::string type;
    std::string value;
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

/// Numbers without the zeros at their ends, so that "1 0.8" and "1.000000 0.800000" are the same.
std::string Plain(const std::string& value) {
    return std::regex_replace(std::regex_replace(value, std::regex("(\\.\\d*?)0+(?= |$)"), "$1"),
                              std::regex("\\.(?= |$)"), "");
}

/// Whether the value of a written line can be of the type that the document gives.
bool Fits(const std::string& type, const std::string& value) {
    const std::map<std::string, std::string> forms = {
        {"switch", "[01]"},
        {"integer", "\\d+"},
        {"unsigned", "\\d+"},
        {"1 to 16 integers", "[\\d ]+"},
        {"float", "-?\\d+\\.\\d{6}"},
        {"3 floats", "(-?\\d+\\.\\d{6} ?){3}"},
        {"4 floats", "(-?\\d+\\.\\d{6} ?){4}"},
    };
    const auto form = forms.find(type);
    if (form != forms.end()) return std::regex_match(value, std::regex(form->second));
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
