#include "core/clsProjectFile.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <set>
#include <thread>

#include "core/clsMain.h"
#include "support/Lines.h"
#include "support/Program.h"
#include "support/RecordingMessage.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "timeline/clsUndoManager.h"

namespace {

bool IsPanelLine(const std::string& line) {
    return line.starts_with("Panel");
}

bool IsKeyLine(const std::string& line) {
    return !line.starts_with("-") && line.find('=') != std::string::npos;
}

/// Another value of the same kind: texts get longer, switches flip, whole numbers move by one.
std::string Changed(const std::string& value) {
    if (value.find_first_not_of("0123456789.- ") != std::string::npos || value.empty()) return value + "x";
    std::string changed;
    for (size_t begin = 0; begin < value.size();) {
        const size_t end = std::min(value.find(' ', begin), value.size());
        std::string number = value.substr(begin, end - begin);
        const size_t digit = std::min(number.find('.'), number.size()) - 1;
        number[digit] = number[digit] == '0' ? '1' : static_cast<char>(number[digit] - 1);
        changed += (begin == 0 ? "" : " ") + number;
        begin = end + 1;
    }
    return changed;
}

class ProjectFileTest : public ::testing::Test {
  protected:
    ProjectFileTest() {
        for (int i = 0; i < 3; ++i)
            mFolder.Write("s000" + std::to_string(i) + ".dat", DefaultSnapshot(0.0F, 0, {}));
        mMain = std::make_unique<Main_cls>(FromFolder(""));
    }
    wxString FromFolder(const std::string& name) const { return wxString::FromUTF8(mFolder.File(name)); }
    void StartAnew() {
        mMain.reset();
        mMain = std::make_unique<Main_cls>(FromFolder(""));
    }
    /// The whole state, saved always under one name.
    std::string Saved() {
        EXPECT_EQ(mMain->SaveProjectFile(FromFolder("saved.vhp"), true), 1);
        return ReadWholeFile(mFolder.File("saved.vhp"));
    }
    bool Read(const std::string& bytes) {
        return mMain->ReadProjectFile(wxString::FromUTF8(mFolder.Write("read.vhp", bytes)));
    }
    /// A project in which every setting, every key of a curve and the data differ from the start.
    std::string AllChanged() {
        std::vector<std::string> lines = Lines(Saved());
        for (size_t i = 0; i < lines.size(); ++i) {
            std::string& line = lines[i];
            const size_t value = line.find('=') + 1;
            if (line.starts_with("DataSequence")) {
                lines[++i] = mFolder.File("s0000.dat");
            } else if (IsKeyLine(line)) {
                // The number of parameters is the program's, and the name of the project its own.
                const bool fixed = line.starts_with("dimension=") || line.starts_with("LastOpenedFileVHP=");
                if (!fixed) line = line.substr(0, value) + Changed(line.substr(value));
            } else if (line.starts_with("0.0000") || line.starts_with("1.0000")) {
                const size_t type = line.find(' ') + 1;
                line[type] = '4';
                line[type + 2] = line[type + 2] == '-' ? '1' : '7';
            }
        }
        return Join(lines);
    }

    TempFolder_cls mFolder;
    RecordingMessage_cls mMessage;
    std::unique_ptr<Main_cls> mMain;
};

TEST_F(ProjectFileTest, EverySettingIsReadButThePanelsOwn) {
    const std::vector<std::string> before = Lines(Saved());
    const std::string changed = AllChanged();
    EXPECT_TRUE(Read(changed));
    EXPECT_EQ(mMain->GetProjectFile().GetUnknownLines(), 0);
    const std::vector<std::string> wanted = Lines(changed);
    const std::vector<std::string> after = Lines(Saved());
    ASSERT_EQ(after.size(), wanted.size());
    ASSERT_EQ(after.size(), before.size());
    int same = 0;
    for (size_t i = 0; i < after.size(); ++i) {
        EXPECT_EQ(after[i], IsPanelLine(wanted[i]) ? before[i] : wanted[i]);
        const bool mayStay = IsPanelLine(wanted[i]) || wanted[i].starts_with("dimension=") ||
                             wanted[i].starts_with("LastOpenedFileVHP=") ||
                             wanted[i].starts_with("DataSequence");
        if (!mayStay && IsKeyLine(wanted[i])) same += wanted[i] == before[i] ? 1 : 0;
    }
    EXPECT_EQ(same, 0) << "settings that were not changed prove nothing";
    EXPECT_FALSE(GbGLLockProjectLoading.load());

    StartAnew();
    EXPECT_TRUE(Read(Join(after)));
    EXPECT_TRUE(Saved() == Join(after)) << "saved, opened and saved";
}

TEST_F(ProjectFileTest, SectionsStandInOrderAndTheConfigurationHasFour) {
    const std::string text = Saved();
    size_t place = 0;
    for (const char* first :
         {"DataLoadDataType=",      "DataExportDataType=", "LastOpenedFileVHP=",  "PathPovRay=",
          "TimeMaxFrame=",          "---TimeRemap\n",      "DownSizing=",         "DataSequence0=",
          "PeriodicType=",          "---CameraPath\n",     "---LightSRC 0\n",     "---LightSRC 7\n",
          "---AllLightSourceEnd\n", "PathPovRay=",         "FilePovSnap=",        "PovRadiosityType=",
          "PovRenderRegion=",       "PovPhotonsType=",     "PovOutputFomat=",     "PovMaxTraceLevel=",
          "PREF_MEMORY_LIMIT=",     "ViewLayout=",         "ShadowVolumeLength=", "Panel0ShowMessage=",
          "Panel3ShowMessage="}) {
        const size_t found = text.find(first, place);
        ASSERT_NE(found, std::string::npos) << first;
        place = found + 1;
    }
    mMain->GetFrameSettings().mLastOpenedFileVHP.SetText("mine.vhp");
    EXPECT_TRUE(mMain->QuitProcess());
    const std::vector<std::string> lines = Lines(ReadWholeFile(mFolder.File(ProjectFile_cls::kConfigName)));
    ASSERT_EQ(lines.size(), 17U);
    EXPECT_EQ(lines[13], "LastOpenedFileVHP=mine.vhp") << "the configuration is no project";
    EXPECT_EQ(lines[16], "PathPovWork=");
}

TEST_F(ProjectFileTest, NoKeyOccursInAnother) {
    // Every line is offered to every item, and an item takes a line that holds its key anywhere.
    std::set<std::string> keys;
    for (const std::string& line : Lines(Saved())) {
        if (IsKeyLine(line)) keys.insert(line.substr(0, line.find('=') + 1));
    }
    EXPECT_GT(keys.size(), 300U);
    for (const std::string& key : keys) {
        for (const std::string& other : keys)
            EXPECT_TRUE(key == other || other.find(key) == std::string::npos) << key << " in " << other;
    }
}

TEST_F(ProjectFileTest, OneLineChangesOneSettingAndClearsTheUndoList) {
    mMain->OpenDataFileCommand(FromFolder("s0000.dat"));
    ASSERT_TRUE(GCUndoList.CanUndo());
    std::string before = Saved();
    EXPECT_TRUE(Read("PathPovRay=/opt/povray\n"));
    EXPECT_FALSE(GCUndoList.CanUndo());
    for (size_t at = 0; (at = before.find("/usr/bin/povray", at)) != std::string::npos;)
        before.replace(at, 15, "/opt/povray");
    EXPECT_TRUE(Saved() == before);
    EXPECT_TRUE(Read("FilePovSnap=a\r\nDownSizing=3\r\nDownSizing=4"));
    EXPECT_EQ(mMain->GetPovRayCtrl().mFilePovSnap.GetValueText(), "a\r") << "carriage returns are kept";
    EXPECT_EQ(mMain->GetDrawOption().GetStep(), 4) << "the last value counts";
}

TEST_F(ProjectFileTest, DamagedFilesLoadWhatIsWhole) {
    const std::string good = AllChanged();
    const auto cutBefore = [&](const char* words, size_t skip) {
        return good.substr(0, good.find(words) + skip);
    };
    std::string carriage;
    for (const std::string& line : Lines(good)) carriage += line + "\r\n";
    struct Case {
        const char* name;
        std::string bytes;
        int downSizing;  // a setting before most blocks
        int memory;      // one behind all of them
    };
    const std::string tail = "\nPREF_MEMORY_LIMIT=777\n";
    const Case cases[] = {
        {"a picture", ReadWholeFile(VARNHOLT_SOURCE_DIR "/docs/images/galaxies.png"), 1, 4096},
        {"an endless line", "DownSizing=5\n" + std::string(3 << 20, '=') + tail, 5, 777},
        {"zeros", "DownSizing=5\n" + std::string(1 << 20, '\0') + tail, 5, 777},
        {"too many numbers", "DownSizing=5\nLoaderTranslate=" + std::string(1 << 20, '1') + tail, 5, 777},
        {"cut in the time remap", cutBefore("Parameter_Time Remap", 12) + tail, 1, 777},
        {"cut in the camera", cutBefore("-ParamGroup=Camera Up", 75) + tail, 0, 777},
        {"cut in a light", cutBefore("---LightSRC 3", 13) + tail, 0, 777},
        {"cut in a curve", cutBefore("SEQ2TYPE0Col ColorCurve", 80) + tail, 0, 777},
        {"everything twice", good + good, 0, 4095},
        {"carriage returns", carriage, 0, 4095},
        {"blocks of others",
         "---FilterCtrl0Begin\n-FilterBegin\nFilterType=1\n-FilterEnd\n---FilterCtrl0End\n--StereoGram\n"
         "---AnchorPath\n-ParamGroup=Anchor\ndimension=3\nStart\n---AnchorPath" +
             tail + "DownSizing=5\n",
         5, 777},
        {"only markers",
         "---TimeRemap\n---CameraPath\n---CameraPath\n---CameraPath\n---LightSRC 9\n---LightSRC " + tail, 1,
         777},
    };
    for (const Case& c : cases) {
        StartAnew();
        EXPECT_TRUE(Read(c.bytes)) << c.name;
        const std::string saved = Saved();
        EXPECT_NE(saved.find("\nPREF_MEMORY_LIMIT=" + std::to_string(c.memory) + "\n"), std::string::npos)
            << c.name;
        EXPECT_EQ(mMain->GetDrawOption().mDownSizing.mValue, c.downSizing) << c.name;
        EXPECT_EQ(mMain->GetMemoryLimitMB(), c.memory) << c.name;
    }
    EXPECT_TRUE(mMessage.mSaid.empty());
    EXPECT_FALSE(mMain->ReadProjectFile(FromFolder("")));
    ASSERT_EQ(mMessage.mSaid.size(), 1U);
    EXPECT_EQ(mMessage.mSaid[0].title, "Warning");
    EXPECT_EQ(mMessage.mSaid[0].text, "Read Configure Fails" + FromFolder(""));
    EXPECT_FALSE(mMain->ReadProjectFile(FromFolder("none/Varnholt3Configure.txt")));
    EXPECT_EQ(mMessage.mSaid.size(), 1U) << "a configuration need not be there";
}

TEST_F(ProjectFileTest, LinesOfNobodyAreCounted) {
    EXPECT_TRUE(Read("FilterType=3\nhello\n\nDownSizing=2\nPanel0ShowGrid=0\n---FilterCtrl0Begin\n"));
    EXPECT_EQ(mMain->GetProjectFile().GetUnknownLines(), 4);
    EXPECT_TRUE(mMain->GetPanelSettings(0).mShowGrid.mValue) << "written, known, not restored";

    // Data that are gone: everything else is there.
    EXPECT_TRUE(Read("DataSequence0=NONE\n" + mFolder.File("gone0000.dat") + "\nDownSizing=6\n"));
    EXPECT_EQ(mMain->GetSeqCtrl().GetActive().GetSeqLength(), 0);
    EXPECT_EQ(mMain->GetDrawOption().GetStep(), 6);
}

TEST_F(ProjectFileTest, HugeFilesCostNoMoreThanTheirFirstPart) {
    const std::string huge = mFolder.Write("huge.vhp", "DownSizing=5\n");
    std::filesystem::resize_file(huge, std::uintmax_t{2} << 30);  // the rest is a hole
    EXPECT_TRUE(mMain->ReadProjectFile(wxString::FromUTF8(huge)));
    EXPECT_EQ(mMain->GetDrawOption().GetStep(), 5);
    std::string many;
    for (int i = 0; i < 1200000; ++i) many += '\n';
    EXPECT_TRUE(Read("DownSizing=6\n" + many));
    EXPECT_EQ(mMain->GetDrawOption().GetStep(), 6);
}

TEST_F(ProjectFileTest, SettingsByHandAreStrict) {
    for (const char* good :
         {"DataLoadDataType=1", "DataLoadGrammerHead=-1", "DataLoadGrammerHead=2 0 1", "LoaderScale=1e-3",
          "LoaderTranslate=1 -2.5 1e6", "TimeRepeat=1", "LastOpenedFile=", "LastOpenedFile=/data/Shadow=3",
          "Panel2GLPersAngle=60", "Light3Visible=1", "SEQ3TYPE2ColUseColorCurve=1", "PovCameraWidth=800"}) {
        EXPECT_EQ(mMain->GetProjectFile().ApplySetting(good), "") << good;
    }
    const std::string before = Saved();
    for (const char* bad :
         {"DataLoadDataType=text", "DataLoadDataType=", "DataLoadDataType=1 ", "DataLoadDataType=99999999999",
          "DataLoadGrammerHead=2  0", "LoaderScale=abc", "LoaderScale=nan", "LoaderScale=1,5",
          "LoaderTranslate=1,2,3", "LoaderTranslate=1 2", "LoaderTranslate=1 2 3 4", "InterpolateType=-1",
          "TimeRepeat=2", "TimeRepeat=yes", "DataSequence0=x", "dimension=3", "Nothing=1", " LoaderScale=1",
          "="}) {
        const wxString error = mMain->GetProjectFile().ApplySetting(bad);
        EXPECT_TRUE(error.StartsWith(wxString(bad) + ":")) << bad << ": " << error;
        EXPECT_TRUE(Saved() == before) << bad;
    }
    const wxString seventeen = "DataLoadGrammerHead=1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17";
    EXPECT_NE(mMain->GetProjectFile().ApplySetting(seventeen), "");
    EXPECT_EQ(mMain->GetPanelSettings(2).mPersAngle.mValue, 60.0F);
    EXPECT_EQ(mMain->GetDrawOption().mShadow.mValue, 0U) << "by hand the key stands at the beginning";
    const ProgramRun_cls run =
        RunProgram({"--no-config", "--info", "s0000.dat", "--set", "LoaderScale=abc"}, mFolder.Path());
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("LoaderScale takes one value: number"), std::string::npos) << run.err;
}

TEST_F(ProjectFileTest, AKillAtAnyMomentLeavesAWholeFile) {
    const std::string target = mFolder.File("killed.vhp");
    const auto save = [&](int downSizing) {
        mMain->GetDrawOption().mDownSizing.mValue = downSizing;
        return mMain->SaveProjectFile(wxString::FromUTF8(target), true) == 1;
    };
    ASSERT_TRUE(save(1));
    std::set<std::string> whole = {ReadWholeFile(target)};
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_TRUE(save(2));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    whole.insert(ReadWholeFile(target));
    ASSERT_EQ(whole.size(), 2U);

    std::mt19937 random(7);
    std::uniform_real_distribution<double> delay(0.0, 3.0 * taken.count());
    int broken = 0;
    for (int i = 0; i < 200; ++i) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (int round = 0;; ++round) save(1 + round % 2);
        }
        std::this_thread::sleep_for(std::chrono::duration<double>(delay(random)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        broken += whole.count(ReadWholeFile(target)) == 1 ? 0 : 1;
    }
    EXPECT_EQ(broken, 0);
    EXPECT_TRUE(mMain->ReadProjectFile(wxString::FromUTF8(target)));
    // A kill that met a save in its middle leaves the temporary file.
    const auto left = std::distance(std::filesystem::directory_iterator(mFolder.Path()), {});
    RecordProperty("metASave", static_cast<int>(left));
    EXPECT_GT(left, 10) << "hardly a kill met a save";
}

TEST_F(ProjectFileTest, ACopyForSafetyNamesTheSameData) {
    mFolder.Write("relative.vhp", "DataSequence0=NONE\ns0000.dat\n");
    std::filesystem::create_directory(mFolder.File("copies"));
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(mFolder.Path());
    mMain->ReadProjectFile("relative.vhp");
    const bool written = mMain->GetProjectFile().WriteCopy("copies/copy.vhp");
    std::filesystem::current_path(before);
    ASSERT_TRUE(written);
    StartAnew();
    ASSERT_TRUE(mMain->ReadProjectFile(FromFolder("copies/copy.vhp")));
    EXPECT_EQ(mMain->GetSeqCtrl().GetActive().GetSeqLength(), 3);
    EXPECT_TRUE(mMain->GetProjectFile().GetFaults().empty());
}

TEST_F(ProjectFileTest, ACutProjectAndMissingDataAreNamed) {
    ASSERT_TRUE(Read("DataSequence0=NONE\n/nowhere/a0000.dat\nTimeMaxFr"));
    const std::vector<wxString> faults = mMain->GetProjectFile().GetFaults();
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_TRUE(faults[0].Contains("read.vhp"));
    EXPECT_TRUE(faults[1].Contains("/nowhere/a0000.dat"));
}

TEST_F(ProjectFileTest, WhatCannotBeSavedLeavesTheOldFile) {
    EXPECT_EQ(mMain->SaveProjectFile(FromFolder("no/such/folder.vhp"), true), 0);
    EXPECT_EQ(mMain->SaveProjectFile("/dev/full", true), 0);
    EXPECT_FALSE(mMain->GetProjectFile().GetError().empty());
    EXPECT_TRUE(mMessage.mSaid.empty()) << "the caller tells it";
}

}  // namespace
