#include "data/clsDataName.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/Printing.h"
#include "support/Program.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

TEST(DataNameTest, NamesInAProjectCountFromItsFolder) {
    const std::string here = std::filesystem::current_path();
    struct Case {
        wxString folder;
        wxString path;
        wxString name;
    };
    const Case cases[] = {{"", "a0.dat", "a0.dat"},
                          {"", "../a0.dat", "../a0.dat"},
                          {"sub/", "sub/a0.dat", "a0.dat"},
                          {"sub/", "sub/more/a0.dat", "more/a0.dat"},
                          {"sub/", "a0.dat", here + "/a0.dat"},
                          {"subtle/", "sub/a0.dat", here + "/sub/a0.dat"},
                          {"sub/", "/data/a0.dat", "/data/a0.dat"},
                          {"sub/", "", ""}};
    for (const Case& c : cases)
        EXPECT_EQ(DataName::ForProject(c.folder, c.path), c.name) << c.folder << c.path;
}

TEST(DataNameTest, AProjectIsMovedWithItsData) {
    const TempFolder_cls folder;
    namespace fs = std::filesystem;
    fs::create_directories(folder.File("one"));
    fs::create_directories(folder.File("elsewhere"));
    folder.Write("one/s0000.dat", DefaultSnapshot(0, 0, {}));
    const auto run = [&](const std::vector<std::string>& arguments, const std::string& from) {
        const auto result = RunProgram(arguments, folder.File(from));
        EXPECT_EQ(result.status, 0) << result.err;
        return result.out;
    };
    run({"--no-config", "--save", "one/p.vhp", "one/s0000.dat"}, "");
    EXPECT_NE(ReadWholeFile(folder.File("one/p.vhp")).find("\ns0000.dat\n"), std::string::npos);
    fs::rename(folder.File("one"), folder.File("two"));
    const auto info = run({"--no-config", "--info", "../two/p.vhp"}, "elsewhere");
    EXPECT_NE(info.find("total: 1 snapshots"), std::string::npos) << info;
    // Saved beside the data under another name it says the same, saved elsewhere where the data are.
    run({"--no-config", "--save", "../two/q.vhp", "../two/p.vhp"}, "elsewhere");
    EXPECT_NE(ReadWholeFile(folder.File("two/q.vhp")).find("\ns0000.dat\n"), std::string::npos);
    run({"--no-config", "--save", "r.vhp", "../two/p.vhp"}, "elsewhere");
    EXPECT_NE(ReadWholeFile(folder.File("elsewhere/r.vhp")).find("/two/s0000.dat\n"), std::string::npos);
    // Projects whose names count from where the program was started are still found.
    fs::rename(folder.File("two/p.vhp"), folder.File("elsewhere/p.vhp"));
    run({"--no-config", "--info", "../elsewhere/p.vhp"}, "two");
}

}  // namespace
