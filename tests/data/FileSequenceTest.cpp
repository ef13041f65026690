#include "data/clsFileSequence.h"

#include <gtest/gtest.h>

#include "data/clsSplitPath.h"
#include "support/RecordingMessage.h"
#include "support/TempFolder.h"

namespace {

TEST(SplitPathTest, CutsAtTheLastSlashAndDot) {
    struct Case {
        const char* path;
        const char* directory;
        const char* name;
        const char* extension;
    };
    for (const Case& c :
         {Case{"a/b/snap01.dat", "a/b/", "snap01", ".dat"}, Case{"a.b/snap01", "a.b/", "snap01", ""},
          Case{"snap", "", "snap", ""}, Case{"/x/.hidden", "/x/", "", ".hidden"}, Case{"", "", "", ""}}) {
        const SplitPath_cls split(c.path);
        EXPECT_EQ(split.mDirectory, c.directory) << c.path;
        EXPECT_EQ(split.mName, c.name) << c.path;
        EXPECT_EQ(split.mExtension, c.extension) << c.path;
        EXPECT_EQ(split.mStem, split.mDirectory + split.mName) << c.path;
    }
}

TEST(FileSequenceTest, NamesAreParsed) {
    struct Case {
        const char* path;
        int start;
        bool isNumbered;
        const char* format;
        const char* seventh;  // name of member start + 7
        const char* left;     // its left picture
    };
    const Case cases[] = {
        {"a/snap0120.bin", 120, true, "a/snap%04d.bin", "a/snap0127.bin", "a/snapL0127.bin"},
        {"run%05d.dat", 0, true, "run%05d.dat", "run00007.dat", "runL00007.dat"},
        {"tipsy.%05d", 0, true, "tipsy.%05d", "tipsy.00007", "tipsy.L00007"},
        {"a/b/data.txt", 0, false, "a/b/data.txt", "a/b/data.txt", "a/b/dataL.txt"},
        {"0042", 42, true, "%04d", "0049", "L0049"},
        {"snap9999", 9999, true, "snap%04d", "snap10006", "snapL10006"},
        {"50%_%s_run7.dat", 7, true, "50%_%s_run%01d.dat", "50%_%s_run14.dat", "50%_%s_runL14.dat"},
        {"t20261121120000.dat", 1121120000, true, "t2026%010d.dat", "t20261121120007.dat",
         "t2026L1121120007.dat"},
        {"a/b.7/snap", 0, false, "a/b.7/snap", "a/b.7/snap", "a/b.7/snapL"},
    };
    for (const Case& c : cases) {
        const FileSequence_cls files(c.path);
        EXPECT_EQ(files.GetStart(), c.start) << c.path;
        EXPECT_EQ(files.IsNumbered(), c.isNumbered) << c.path;
        EXPECT_EQ(files.GetFormat(), c.format) << c.path;
        EXPECT_EQ(files.GetModifiedStr(7), c.seventh) << c.path;
        EXPECT_EQ(files.GetModifiedStr(7, FileSequence_cls::Side::Left), c.left) << c.path;
    }
    EXPECT_FALSE(FileSequence_cls(wxString('x', 1000) + "7").IsNumbered()) << "too long for a number";

    FileSequence_cls files("snap0120.bin");
    files.Set("");
    EXPECT_EQ(files.GetPath(), "");
    EXPECT_EQ(files.GetFormat(), "snap%04d.bin") << "an empty name leaves the rest";
}

TEST(FileSequenceTest, ConsecutiveFilesAreCounted) {
    struct Case {
        const char* first;
        std::vector<std::pair<int, int>> present;
        int count;
    };
    const Case cases[] = {
        {"snap0099.dat", {{99, 350}}, 252},
        {"snap0099.dat", {{99, 99}}, 1},
        {"snap%03d.dat", {{0, 9}}, 10},
        {"snap0000.dat", {{0, 100}, {102, 300}}, 301},  // the probes at 100, 200 and 300 step over the gap
        {"snap0000.dat", {{0, 4}, {6, 9}}, 5},
        {"snap0000.dat", {{0, 199}}, 200},
    };
    for (const Case& c : cases) {
        const TempFolder_cls folder;
        const FileSequence_cls names(folder.File(c.first));
        for (const auto& [first, last] : c.present) {
            for (int i = first; i <= last; ++i) {
                folder.Write(
                    SplitPath_cls(names.GetModifiedStr(i - names.GetStart())).mName.ToStdString() + ".dat",
                    "");
            }
        }
        FileSequence_cls files(folder.File(c.first));
        files.CalcMaxOffset();
        EXPECT_EQ(files.GetCount(), c.count) << c.first;
    }
}

TEST(FileSequenceTest, AMissingFirstFileIsTold) {
    const TempFolder_cls folder;
    RecordingMessage_cls messages;
    FileSequence_cls files(folder.File("snap0003.dat"));
    files.CalcMaxOffset();
    EXPECT_EQ(files.GetCount(), 0);
    ASSERT_EQ(messages.mSaid.size(), 1U);
    EXPECT_EQ(messages.mSaid[0].title, "Can not open file");
    EXPECT_EQ(messages.mSaid[0].text,
              "FileSequence_cls::CalcMaxOffset\n" + folder.File("snap0003.dat") + "\nFile open fails");

    std::filesystem::create_directory(folder.File("dir0000"));
    FileSequence_cls directory(folder.File("dir0000"));
    directory.CalcMaxOffset();
    EXPECT_EQ(directory.GetCount(), 0) << "a folder is no snapshot";
}

TEST(FileSequenceTest, InfoAndDefaultTag) {
    FileSequence_cls files("snap0010.dat");
    files.SetCount(5);
    EXPECT_EQ(files.GetInfoStr(), "snap0010.dat (10-14)");
    EXPECT_EQ(FileSequence_cls("out.png").GetInfoStr(), "out.png");

    FileSequence_cls picture("out.png");
    picture.AppendDefaultSequenceTag();
    EXPECT_EQ(picture.GetPath(), "out%04d");
    EXPECT_EQ(picture.GetModifiedStr(12), "out0012");
}

}  // namespace
