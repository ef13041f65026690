#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

/// Folders from the lowest to the highest: a header includes only its own folder and those before it.
const std::vector<std::string> kFolders = {"seam",  "CONFITEM", "timeline", "data", "interp", "render",
                                           "scene", "output",   "pov",      "gui",  "core"};

/// Single headers that a lower folder may use.
const std::map<std::string, std::set<std::string>> kMayAlsoInclude = {{"interp", {"render/clsColorCurve.h"}}};

struct Source {
    std::string name;  // as includes write it
    std::string folder;
    bool header;
    std::string text;
    std::vector<std::string> includes;
};

std::string IncludeName(const fs::path& path) {
    std::string name = fs::relative(path, VARNHOLT_SOURCE_DIR).generic_string();
    if (name.starts_with("SRC/")) name.erase(0, 4);
    return name;
}

std::vector<Source> ReadSources() {
    const std::regex include("#include \"([^\"]+)\"");
    std::vector<Source> sources;
    for (const std::string& folder : kFolders) {
        const fs::path root =
            fs::path(VARNHOLT_SOURCE_DIR) / (folder == "CONFITEM" ? "SRC/CONFITEM" : folder);
        if (!fs::exists(root)) continue;
        for (const auto& entry : fs::directory_iterator(root)) {
            const std::string extension = entry.path().extension();
            if (extension != ".h" && extension != ".cpp") continue;
            Source source{
                IncludeName(entry.path()), folder, extension == ".h", ReadWholeFile(entry.path()), {}};
            for (std::sregex_iterator i(source.text.begin(), source.text.end(), include), end; i != end;
                 ++i) {
                source.includes.push_back((*i)[1]);
            }
            sources.push_back(std::move(source));
        }
    }
    return sources;
}

size_t Rank(const std::string& folder) {
    return static_cast<size_t>(std::find(kFolders.begin(), kFolders.end(), folder) - kFolders.begin());
}

TEST(StructureTest, IncludesGoDownwards) {
    const auto sources = ReadSources();
    ASSERT_GT(sources.size(), 20U);
    for (const Source& source : sources) {
        const auto also = kMayAlsoInclude.find(source.folder);
        for (const std::string& target : source.includes) {
            const std::string folder = target.substr(0, target.find('/'));
            ASSERT_LT(Rank(folder), kFolders.size()) << source.name << " includes " << target;
            if (also != kMayAlsoInclude.end() && also->second.count(target)) continue;
            // A .cpp may start an object of a higher folder, but nobody below knows a window.
            const bool upwards = Rank(folder) > Rank(source.folder);
            EXPECT_FALSE(upwards && source.header) << source.name << " includes " << target;
            EXPECT_FALSE(folder == "gui" && source.folder != "gui" && source.folder != "core")
                << source.name << " includes " << target;
        }
    }
}

TEST(StructureTest, HeadersFormNoLoop) {
    std::map<std::string, std::vector<std::string>> graph;
    for (const Source& source : ReadSources()) graph[source.name] = source.includes;
    std::map<std::string, int> state;  // 1: being visited, 2: done
    const std::function<void(const std::string&)> visit = [&](const std::string& name) {
        state[name] = 1;
        for (const std::string& next : graph[name]) {
            EXPECT_NE(state[next], 1) << name << " and " << next << " include each other";
            if (state[next] == 0) visit(next);
        }
        state[name] = 2;
    };
    const auto names = graph;
    for (const auto& [name, includes] : names) {
        if (state[name] == 0) visit(name);
    }
}

TEST(StructureTest, OnlyDrawingFoldersCallOpenGL) {
    const std::set<std::string> drawing = {"render", "scene", "output", "gui"};
    const std::regex call("\\bglu?[A-Z][A-Za-z0-9]*\\(|#include <GL/");
    for (const Source& source : ReadSources()) {
        if (drawing.count(source.folder)) continue;
        EXPECT_FALSE(std::regex_search(source.text, call)) << source.name;
    }
}

TEST(StructureTest, FilesHoldOneIdea) {
    for (const Source& source : ReadSources()) {
        EXPECT_LE(std::count(source.text.begin(), source.text.end(), '\n'), 700) << source.name;
    }
}

TEST(StructureTest, PathsNamedInTheDocumentationExist) {
    // Words in backquotes with a slash, or with one of our endings, that are made of name characters only.
    const std::regex path(
        "`(\\./)?([A-Za-z0-9_./-]+/[A-Za-z0-9_.-]*|[A-Za-z0-9_-]+\\.(md|sh|cpp|h|txt|json))`");
    const fs::path root = VARNHOLT_SOURCE_DIR;
    // Made by a run, not part of the repository.
    const std::set<std::string> made = {"build", "demo"};
    std::vector<fs::path> documents = {root / "README.md"};
    for (const auto& entry : fs::directory_iterator(root / "docs")) {
        if (entry.path().extension() == ".md") documents.push_back(entry.path());
    }
    int checked = 0;
    for (const fs::path& document : documents) {
        const std::string text = ReadWholeFile(document);
        for (std::sregex_iterator i(text.begin(), text.end(), path), end; i != end; ++i) {
            const std::string name = (*i)[2];
            if (name.starts_with("/") || made.count(name.substr(0, name.find('/')))) continue;
            ++checked;
            EXPECT_TRUE(fs::exists(root / name)) << document.filename() << " names " << name;
        }
    }
    EXPECT_GT(checked, 10);
}

}  // namespace
