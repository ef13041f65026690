#include <gtest/gtest.h>

#include <cstdlib>

#include "data/clsFileSequence.h"
#include "data/clsSeriesFolder.h"
#include "data/clsSeriesRestore.h"
#include "data/clsStepSplitter.h"
#include "support/RecordingMessage.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

/// A user's cache directory of its own, and a folder of runs.
class SeriesFolderTest : public testing::Test {
  protected:
    SeriesFolderTest() { setenv("XDG_CACHE_HOME", mCache.Path().c_str(), 1); }
    ~SeriesFolderTest() override { unsetenv("XDG_CACHE_HOME"); }

    /// Opens the series of a file through links; the contents of its members, one behind the other.
    std::string OpenByLinks(const std::string& first) const {
        const wxString path = mRun.File(first);
        const SeriesFolder_cls folder(path, SeriesFolder_cls::Content::Links);
        EXPECT_EQ(folder.MakeLinks(SeriesNames_cls::Find(path)), "");
        return ReadSeries(folder.GetMember(0));
    }
    static std::string ReadSeries(const wxString& first) {
        FileSequence_cls files(first);
        files.CalcMaxOffset();
        std::string contents;
        for (int i = 0; i < files.GetCount(); ++i)
            contents += ReadWholeFile(files.GetModifiedStr(i).ToStdString());
        return contents;
    }
    int FilesInCache() const {
        int files = 0;
        for (const auto& entry : fs::recursive_directory_iterator(mCache.Path()))
            files += !entry.is_directory();
        return files;
    }

    const TempFolder_cls mCache;
    const TempFolder_cls mRun;
};

TEST_F(SeriesFolderTest, RealNamesAreFoundInOrder) {
    struct Case {
        std::vector<const char*> names;  // the chosen one first
        const char* order;               // each file holds its name and a blank
        bool ordinary;
    };
    const Case cases[] = {
        {{"dump.0", "dump.1000", "dump.200", "dump.x", "other.5"}, "dump.0 dump.200 dump.1000 ", false},
        {{"dump.200", "dump.0", "dump.1000"}, "dump.200 dump.1000 ", false},
        {{"run.00128", "run.00130", "run.00129"}, "run.00128 run.00129 run.00130 ", false},
        {{"d100.lammps.txt", "d20.lammps.txt", "d300.lammps.txt"}, "d100.lammps.txt d300.lammps.txt ", false},
        {{"s0000.dat", "s0001.dat", "s0002.dat"}, "s0000.dat s0001.dat s0002.dat ", true},
        {{"s0000.dat", "s0002.dat"}, "s0000.dat s0002.dat ", false},
        {{"7", "8", "100"}, "7 8 100 ", false},
        {{"a%05d.1", "a%05d.2"}, "a%05d.1 a%05d.2 ", false},
        {{"x.99999999999999999999", "x.100000000000000000000"},
         "x.99999999999999999999 x.100000000000000000000 ",
         false},
        {{"alone.dat"}, "alone.dat ", true},
    };
    for (const Case& c : cases) {
        for (const char* name : c.names) mRun.Write(name, std::string(name) + " ");
        const wxString path = mRun.File(c.names[0]);
        EXPECT_EQ(SeriesNames_cls::Find(path).IsOrdinary(), c.ordinary) << c.names[0];
        EXPECT_EQ(OpenByLinks(c.names[0]), c.order);
        for (const char* name : c.names) fs::remove(mRun.File(name));
    }
}

TEST_F(SeriesFolderTest, LinksFollowTheirSeriesAndComeBack) {
    mRun.Write("dump.0", "0");
    mRun.Write("dump.10", "1");
    EXPECT_EQ(OpenByLinks("dump.0"), "01");
    mRun.Write("dump.5", "5");
    EXPECT_EQ(OpenByLinks("dump.0"), "051");
    fs::remove(mRun.File("dump.10"));
    EXPECT_EQ(OpenByLinks("dump.0"), "05");

    // Only what is old and has lost its files goes.
    const SeriesFolder_cls folder(mRun.File("dump.0"), SeriesFolder_cls::Content::Links);
    SeriesFolder_cls::RemoveStale();
    fs::remove_all(mRun.Path());
    SeriesFolder_cls::RemoveStale();
    EXPECT_EQ(FilesInCache(), 2);
    fs::last_write_time(folder.GetPath().ToStdString(),
                        fs::file_time_type::clock::now() - std::chrono::hours(800));
    SeriesFolder_cls::RemoveStale();
    EXPECT_EQ(FilesInCache(), 0);
}

std::string Step(int number, int particles, bool xyz) {
    std::string text = xyz ? std::to_string(particles) + "\ncomment\n"
                           : "ITEM: TIMESTEP\n" + std::to_string(number) + "\nITEM: NUMBER OF ATOMS\n" +
                                 std::to_string(particles) + "\nITEM: ATOMS id x y z\n";
    for (int i = 0; i < particles; ++i)
        text += std::to_string(i) + " 0.25 " + std::to_string(number) + " 1e-3\n";
    return text;
}

TEST_F(SeriesFolderTest, WhatAProjectNamesComesBack) {
    mRun.Write("dump.0", "0");
    mRun.Write("dump.10", "1");
    mRun.Write("t.xyz", Step(1, 2, true) + Step(2, 3, true));
    for (const auto& [file, content, whole] :
         {std::tuple("dump.0", SeriesFolder_cls::Content::Links, std::string("01")),
          std::tuple("t.xyz", SeriesFolder_cls::Content::Steps, ReadWholeFile(mRun.File("t.xyz")))}) {
        const wxString member = SeriesFolder_cls(mRun.File(file), content).GetMember(0);
        // The names that this user's projects have, and those of somebody with another cache.
        for (const wxString& name :
             {member, "/home/nobody/.cache" + member.Mid(mCache.Path().string().size())}) {
            fs::remove_all(mCache.Path() / "varnholt3");
            EXPECT_EQ(SeriesRestore_cls::Restore(name), member);
            EXPECT_EQ(ReadSeries(member), whole) << name;
        }
        fs::remove(mRun.File(file));
        RecordingMessage_cls messages;
        EXPECT_EQ(SeriesRestore_cls::Restore(member), member);
        EXPECT_EQ(messages.mSaid.empty(), content == SeriesFolder_cls::Content::Steps)
            << "steps are whole without their file";
        messages.mSaid.clear();
        fs::remove_all(mCache.Path() / "varnholt3");
        SeriesRestore_cls::Restore(member);
        EXPECT_EQ(messages.mSaid.size(), 1U);
    }
    EXPECT_EQ(SeriesRestore_cls::Restore("/data/run/s0000.dat"), "/data/run/s0000.dat");
}

TEST_F(SeriesFolderTest, StepsOfOneFileBecomeASeries) {
    for (const bool xyz : {false, true}) {
        // Steps of all lengths, over the borders of the pieces that are read.
        std::string all;
        std::vector<std::string> steps;
        for (int i = 0; i < 60; ++i) {
            steps.push_back(Step(i, (i * i * 131) % 20000, xyz));
            all += steps.back();
        }
        const std::string name = xyz ? "t.xyz" : "t.lammpstrj";
        const wxString path = mRun.Write(name, (xyz ? "" : "ITEM: UNITS\nlj\n") + all + "\n");
        steps.back() += "\n";
        uint64_t told = 0;
        const auto result = StepSplitter_cls::Split(path, [&told](uint64_t done, uint64_t size) {
            EXPECT_LE(done, size);
            told = done;
            return true;
        });
        EXPECT_EQ(result.words, "");
        ASSERT_EQ(result.steps, steps.size());
        EXPECT_GT(told, 0U);
        FileSequence_cls files(result.first);
        files.CalcMaxOffset();
        ASSERT_EQ(files.GetCount(), static_cast<int>(steps.size()));
        for (size_t i = 0; i < steps.size(); ++i)
            ASSERT_EQ(ReadWholeFile(files.GetModifiedStr(static_cast<int>(i)).ToStdString()), steps[i]) << i;

        // As long as the file is the same, nothing is copied again.
        const auto never = [](uint64_t, uint64_t) { return false; };
        EXPECT_FALSE(StepSplitter_cls::Split(path, never).cancelled);
        mRun.Write(name, all + all);
        EXPECT_TRUE(StepSplitter_cls::Split(path, never).cancelled);
        EXPECT_EQ(FilesInCache() % 61, 0) << "the folder is whole or not there";
    }
}

TEST_F(SeriesFolderTest, FilesThatAreNoStepsAreToldAndLeaveNothing) {
    struct Case {
        const char* name;
        std::string bytes;
        const char* words;
        size_t steps;
    };
    const Case cases[] = {
        {"empty", "", "the file holds no time steps", 0},
        {"prose", "hello\n", "the file holds no time steps", 0},
        {"prose behind", Step(0, 2, true) + "hello\n",
         "behind step 1 stands no number of particles; the series ends", 1},
        {"cut", Step(0, 2, true) + "1000000000\ncomment\n", "", 2},
    };
    for (const Case& c : cases) {
        const auto result = StepSplitter_cls::Split(mRun.Write(c.name, c.bytes), {});
        EXPECT_EQ(result.steps, c.steps) << c.name;
        EXPECT_TRUE(result.words.Contains(c.words)) << c.name << result.words;
        EXPECT_EQ(result.first.empty(), c.steps == 0) << c.name;
    }
    EXPECT_EQ(StepSplitter_cls::Split(mRun.File("none"), {}).steps, 0U);
    EXPECT_EQ(FilesInCache(), 1 + 1 + 2 + 1);
}

}  // namespace
