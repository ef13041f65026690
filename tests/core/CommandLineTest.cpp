#include "core/clsCommandLine.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <clocale>
#include <filesystem>

#include "support/Program.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

TEST(CommandLineTest, FrameRanges) {
    struct Case {
        const char* text;
        bool good;
        int first, last, step;
    };
    for (const Case& c :
         {Case{"7", true, 7, 7, 1}, Case{"0:10", true, 0, 10, 1}, Case{"2:9:3", true, 2, 9, 3},
          Case{"", false, 0, 0, 0}, Case{"-1:3", false, 0, 0, 0}, Case{"5:3", false, 0, 0, 0},
          Case{"1:2:0", false, 0, 0, 0}, Case{"1:2:3:4", false, 0, 0, 0}, Case{"1:", false, 0, 0, 0},
          Case{"99999999999", false, 0, 0, 0}}) {
        const auto range = FrameSelection_cls::Parse(c.text);
        ASSERT_EQ(range.has_value(), c.good) << c.text;
        if (!range) continue;
        EXPECT_EQ(range->mFirst, c.first) << c.text;
        EXPECT_EQ(range->mLast, c.last) << c.text;
        EXPECT_EQ(range->mStep, c.step) << c.text;
    }
}

/// Runs of the whole program on files that are not what they should be.
class BadInputTest : public ::testing::Test {
  protected:
    static constexpr SampleParticle_cls kParticle{{1, 2, 3}, {0, 0, 0}, 1, 1, 0, 0};

    void SetUp() override {
        mFolder.Write("good0000.dat", DefaultSnapshot(0.5F, 2, {kParticle, kParticle}));
        mFolder.Write("short0000.dat", "abc");
        mFolder.Write("empty0000.dat", "");
        mFolder.Write("cut0000.dat", DefaultSnapshot(0.0F, 1000, {kParticle, kParticle, kParticle}));
        mFolder.Write("minus0000.dat", DefaultSnapshot(0.0F, -5, {kParticle}));
        mFolder.Write("huge0000.dat", DefaultSnapshot(0.0F, 2000000000, {kParticle}));
        mFolder.Write("mixed0000.tipsy", Bytes(0.5, 2, 3, 1, 1, 0, 0) + std::string(84, '\0'));
        std::string swapped = DefaultSnapshot(0.0F, 2, {kParticle, kParticle});
        std::reverse(swapped.begin() + 4, swapped.begin() + 8);
        mFolder.Write("swapped0000.dat", swapped);
        mFolder.Write("text0000.txt", "0.5\n3\n1 2 3\n\n4 5 6\n");
        mFolder.Write("hugetext0000.txt", "0.5\n2000000000\n1 2 3\n");
        std::filesystem::create_directory(mFolder.File("folder0000"));
        std::filesystem::create_directory(mFolder.File("folder.dat"));
    }

    TempFolder_cls mFolder;
};

TEST_F(BadInputTest, EachFaultIsOneClearLineWithTheFigures) {
    const std::vector<std::string> text = {"--set", "DataLoadDataType=1", "--set", "DataLoadGrammerBody=0"};
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::vector<const char*> said;
    };
    const Case cases[] = {
        {{"--info", "gone0000.dat"}, 1, {"gone0000.dat", "File open fails"}},
        {{"--info", "gone.dat"}, 1, {"gone.dat", "No such file"}},
        {{"--info", "empty0000.dat"}, 1, {"empty0000.dat", "0 of 8 bytes"}},
        {{"--info", "short0000.dat"}, 1, {"short0000.dat", "3 of 8 bytes"}},
        {{"--info", "cut0000.dat"},
         1,
         {"cut0000.dat", "1000 particles (40008 bytes)", "128 bytes", "3 particles"}},
        {{"--info", "minus0000.dat"}, 1, {"minus0000.dat", "-5 particles"}},
        {{"--info", "huge0000.dat"},
         1,
         {"huge0000.dat", "2000000000 particles (80000000008 bytes)", "48 bytes"}},
        {{"--info", "mixed0000.tipsy"}, 1, {"mixed0000.tipsy", "1 gas 1 dark", "cannot be read"}},
        {{"--info", "swapped0000.dat"}, 1, {"swapped0000.dat", "other byte order"}},
        {{"--info", "folder0000"}, 1, {"folder0000", "File open fails"}},
        {{"--info", "folder.dat"}, 1, {"folder.dat", "is a directory"}},
        {{"--info", "text0000.txt", "--set", "DataLoadDataType=1"},
         1,
         {"text0000.txt", "3 particles", "2 lines"}},
        {{"--info", "hugetext0000.txt", "--set", "DataLoadDataType=1"},
         1,
         {"2000000000 particles", "1 lines"}},
        {{"--info", "good0000.dat", "--set", "DataLoadGrammerBody=1 6"}, 1, {"No XYZ data."}},
        {{"--info", "good0000.dat", "--set", "NoSuchKey=1"}, 2, {"NoSuchKey=1"}},
        {{"--info", "good0000.dat", "--set", "nonsense"}, 2, {"nonsense", "KEY=VALUE"}},
        {{"--info"}, 2, {"no data file"}},
        {{"--info", "a", "b"}, 2, {"only one file"}},
        {{"--nonsense"}, 2, {"--nonsense"}},
        {{"--render", "out%04d.xyz", "good0000.dat"}, 2, {"out%04d.xyz", ".png"}},
        {{"--render", "out.png", "good0000.dat", "--size", "0x10"}, 2, {"0x10"}},
        {{"--render", "out.png", "good0000.dat", "--size", "10x99999999"}, 2, {"10x99999999"}},
        {{"--render", "out.png", "good0000.dat", "--frames", "0:5"}, 2, {"0:5", "frame 0"}},
        {{"--export", "", "good0000.dat"}, 2, {"--export"}},
        {{"--export", "out.txt", "good0000.dat", "--at", "1e8"}, 2, {"--at 1e+08", "snapshot 0"}},
        {{"--render", "out.png", "good0000.dat", "--movie", "out.png"}, 2, {"--movie out.png"}},
        {{"--render", "out.png", "good0000.dat", "--movie", "f.mp4", "--fps", "0"},
         2,
         {"--fps 0", "1 to 240"}},
        {{"--info", "gone.vhp"}, 1, {"Read Configure Failsgone.vhp"}},
        {{"--save", "no/such/folder/a.vhp", "good0000.dat"}, 1, {"no/such/folder/a.vhp"}},
    };
    for (const Case& c : cases) {
        const ProgramRun_cls run = RunProgram(c.arguments, mFolder.Path());
        EXPECT_EQ(run.status, c.status) << ::testing::PrintToString(c.arguments) << run.err;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        for (const char* words : c.said)
            EXPECT_NE(run.err.find(words), std::string::npos) << words << ": " << run.err;
    }
}

TEST_F(BadInputTest, WhatScenesAndSeriesNeedIsReadAndWrittenOrTold) {
    const auto pov = [&](const std::string& texture) {
        return RunProgram(
            {"--no-config", "--quiet", "--pov", ".", "good0000.dat", "--set", "SEQ0TYPE0DrawType=1", "--set",
             "SEQ0TYPE1DrawType=1", "--set", "SEQ0TYPE0TexFileBillboard=" + texture},
            mFolder.Path());
    };
    ASSERT_EQ(mkfifo(mFolder.File("fifo").c_str(), 0666), 0);
    for (const char* texture : {"fifo", "folder.dat", "gone.png", "good0000.dat"}) {
        const ProgramRun_cls run = pov(mFolder.File(texture));
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.err.find(std::string(texture) + " is not used: "), std::string::npos) << run.err;
    }
    std::filesystem::remove(mFolder.File("Billboard0.png"));
    std::filesystem::create_directory(mFolder.File("Billboard0.png"));
    const ProgramRun_cls run = pov("Texture/ParticleA.png");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("Billboard0.png: cannot open"), std::string::npos) << run.err;

    const std::string step = "2\ncomment\nA 0 0 0\nA 1 1 1\n";
    mFolder.Write("t.xyz", step + step);
    const ProgramRun_cls split =
        RunProgram({"--no-config", "--info", "t.xyz"}, mFolder.Path(), {"XDG_CACHE_HOME=/dev/null"});
    EXPECT_EQ(split.status, 1) << "only the first step";
    EXPECT_NE(split.err.find("/dev/null"), std::string::npos) << split.err;
}

TEST_F(BadInputTest, ConfigurationFilesOfAnyKindDoNoHarm) {
    std::string lines = "DataLoadGrammerBody=";
    for (int i = 0; i < 10000; ++i) lines += "7 ";
    lines += "\nDataLoadDataType=zzz\r\nLoaderTranslate=" + std::string(1 << 20, '9') + "\n" +
             std::string(3, '\0');
    lines += "\xff\xfe\x80 LoaderScale=\n" + std::string(200000, 'x');
    const std::string config = mFolder.Write("config.txt", lines);
    const ProgramRun_cls run =
        RunProgram({"--config", config, "--info", "good0000.dat", "--set", "DataLoadGrammerBody=0 1 5 6 7 8"},
                   mFolder.Path());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("t = 0.5"), std::string::npos) << run.out;
}

TEST(ProgramTest, HelpAndVersionNeedNothing) {
    EXPECT_EQ(RunProgram({"--version"}).out, "varnholt3 0.80\n");
    const ProgramRun_cls help = RunProgram({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"--info", "--render", "--save", "--play", "--frames", "--size", "--set",
                               "--config", "--no-config"}) {
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    }
    EXPECT_EQ(RunProgram({}).status, 1) << "no display to open a window on";
}

TEST(ProgramTest, SettingsSurviveWritingAndReadingUnderEveryLocale) {
    const TempFolder_cls folder;
    const std::string data =
        "n\xc3\xa4me \xe6\x98\x9f \xff 0000.dat";  // umlaut, kanji and a byte that is no UTF-8
    folder.Write(data, DefaultSnapshot(0.0F, 0, {}));
    std::vector<std::string> first = {"--no-config", "--save", "a.vhp", data};
    for (const char* setting : {"DataLoadGrammerHead=2 0 1", "DataLoadGrammerBody=0 2 8", "InterpolateType=0",
                                "VariableNumber=2", "LoaderTranslate=1.5 -2.25 1e6", "LoaderScale=0.125",
                                "LoaderScaleValue1=1e-3", "LoaderLogarithm=1"}) {
        first.insert(first.end(), {"--set", setting});
    }
    std::string before;
    for (const char* locale : {"C", "de_DE.UTF-8", "ja_JP.UTF-8"}) {
        if (!std::setlocale(LC_ALL, locale)) GTEST_SKIP() << locale << " is not on this machine";
        std::setlocale(LC_ALL, "C");
        const std::vector<std::string> environment = {std::string("LC_ALL=") + locale};
        ASSERT_EQ(RunProgram(first, folder.Path(), environment).status, 0);
        const std::string written = ReadWholeFile(folder.File("a.vhp"));
        ASSERT_EQ(RunProgram({"--no-config", "--save", "a.vhp", "a.vhp"}, folder.Path(), environment).status,
                  0);
        EXPECT_TRUE(written == ReadWholeFile(folder.File("a.vhp"))) << locale;
        EXPECT_NE(written.find("LoaderTranslate=1.500000 -2.250000 1000000.000000\n"), std::string::npos)
            << written;
        EXPECT_NE(written.find("DataSequence0=NONE\n" + data + "\n"), std::string::npos);
        EXPECT_TRUE(before.empty() || written == before) << locale;
        before = written;
    }
}

}  // namespace
