#include "core/clsMain.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/clsProjectFile.h"
#include "interp/clsSnapData.h"
#include "render/clsGLAttribute.h"
#include "seam/clsDiagnostics.h"
#include "support/Program.h"
#include "support/RecordingMessage.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "timeline/clsParamEdit.h"
#include "timeline/clsUndoManager.h"

namespace {

class MainTest : public ::testing::Test {
  protected:
    /// A series of files with one particle each, at x = its number.
    wxString Write(const std::string& name, int files) {
        for (int i = 0; i < files; ++i) {
            const auto x = static_cast<float>(i);
            char number[16];
            std::snprintf(number, sizeof number, "%05d.dat", i);
            mFolder.Write(name + number, DefaultSnapshot(x, 1, {{{x, 0, 0}, {1, 0, 0}, 1, 0, 0, x}}));
        }
        return wxString::FromUTF8(mFolder.File(name + "00000.dat"));
    }
    int Length() { return mMain.GetSeqCtrl().GetActive().GetSeqLength(); }
    wxString Path() { return mMain.GetSeqCtrl().GetActive().GetFiles().GetPath(); }
    static long Threads() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    }

    TempFolder_cls mFolder;
    RecordingMessage_cls mMessage;
    Main_cls mMain{wxString::FromUTF8(mFolder.Path().string())};
};

TEST_F(MainTest, UndoAfterALoadBringsTheEarlierDataBack) {
    const wxString one = Write("one", 3);
    const wxString two = Write("two", 5);
    mMain.GetDataLoader().OpenDataFile(one);
    EXPECT_EQ(Length(), 3);
    EXPECT_EQ(mMain.GetTimeCtrl().GetMaxFrame(), 2);
    mMain.GetDataLoader().OpenDataFile(two);
    EXPECT_EQ(mMain.GetTimeCtrl().GetSettings().GetWorkArea().last, 4) << "the whole scene as before";
    ASSERT_NE(mMain.PrepareState(2.5), nullptr);
    EXPECT_FLOAT_EQ(mMain.PrepareState(2.5)->GetPosition()[0], 2.5F);

    GCUndoList.UndoCurrent();
    EXPECT_EQ(Path(), one);
    EXPECT_EQ(Length(), 3);
    ASSERT_NE(mMain.PrepareState(9.0), nullptr);
    EXPECT_FLOAT_EQ(mMain.PrepareState(9.0)->GetPosition()[0], 2.0F);
    GCUndoList.ExecCurrent();
    EXPECT_EQ(Path(), two);
    mMain.CloseDataCommand();
    EXPECT_EQ(Length(), 0);
    EXPECT_EQ(mMain.PrepareState(0.0), nullptr);
    for (const wxString& path : {two, one, wxString()}) {
        GCUndoList.UndoCurrent();
        EXPECT_EQ(Path(), path);
    }
    EXPECT_EQ(Length(), 0);
    EXPECT_EQ(mMain.GetAverageMemoryMB(), -1) << "nothing is loaded";
}

TEST_F(MainTest, LongSeriesAreCut) {
    const wxString path = Write("long", 10001);
    mMain.OpenDataFileCommand(path);
    ASSERT_EQ(mMessage.mSaid.size(), 1U);
    EXPECT_EQ(mMessage.mSaid[0].title, "Warning");
    EXPECT_EQ(mMessage.mSaid[0].text, "Max file sequence number is 8000");
    EXPECT_EQ(Length(), 8000);
    EXPECT_EQ(mMain.GetTimeCtrl().GetMaxFrame(), 7999);

    ASSERT_EQ(mMain.SaveProjectFile(wxString::FromUTF8(mFolder.File("a.vhp")), true), 1);
    ASSERT_TRUE(mMain.GetProjectFile().OpenProject(wxString::FromUTF8(mFolder.File("a.vhp"))));
    EXPECT_EQ(mMessage.mSaid.size(), 2U) << "a project opens it the same way";
    EXPECT_EQ(Length(), 8000);

    std::filesystem::remove(mFolder.File("long10000.dat"));
    mMain.OpenDataFileCommand(path);
    EXPECT_EQ(mMessage.mSaid.size(), 2U) << "10000 are not too many";
    EXPECT_EQ(Length(), 10000);
    EXPECT_EQ(mMain.GetTimeCtrl().GetMaxFrame(), 9999);
}

TEST_F(MainTest, AThousandOpenAndCloseLeaveNothing) {
    const wxString path = Write("s", 3);
    SetDiagnosticsOn(false);
    const auto round = [&](int i) {
        mMain.OpenDataFileCommand(path);
        // Closed with rates made, with a reader under way, and with nothing begun.
        if (i % 3 == 0) mMain.PrepareState(0.5);
        if (i % 3 == 1) mMain.GetSeqCtrl().PrepareIndex(1, 0.0, false, false);
        mMain.CloseDataCommand();
    };
    round(0);
    const long threads = Threads();
    for (int i = 0; i < 1000; ++i) round(i);
    SetDiagnosticsOn(true);
    EXPECT_EQ(Threads(), threads);
    mMain.CleanUpMemory(0);
    EXPECT_EQ(mMain.GetUsedTotalMemoryMB(), 0);
    EXPECT_TRUE(mMessage.mSaid.empty());
}

TEST_F(MainTest, EveryParameterIsFoundByItsIdentifier) {
    std::vector<ParamGroup_cls*> groups;
    for (ParamGroup_cls* tree : mMain.GetTimeGroups())
        groups.insert(groups.end(), tree->GetChildren().begin(), tree->GetChildren().end());
    EXPECT_EQ(mMain.GetTimeGroups().front()->GetName(), "Camera Path");
    EXPECT_EQ(groups.size(), 5U + 8U * 5U);
    groups.push_back(&mMain.GetTimeCtrl().GetRemapGroup());
    for (int i = 0; i < PDataSeqCtrl_cls::kSequences; ++i) {
        for (const auto& attribute : mMain.GetSeqCtrl().GetSequence(i).GetAttributes())
            groups.push_back(&attribute->GetCurve(0).GetParamGroup());
    }
    for (ParamGroup_cls* group : groups) {
        for (int i = 0; i < group->GetDimension(); ++i) {
            Parameters_cls& parameter = group->GetParameter(i);
            EXPECT_EQ(mMain.GetPCParamFromID(parameter.GetID()), &parameter) << parameter.GetID();
        }
    }
    EXPECT_EQ(mMain.GetPCParamFromID("nobody"), nullptr);
}

TEST_F(MainTest, CameraAndLightsMoveWithTheirKeysAndFollowTheScene) {
    CameraPath_cls& camera = mMain.GetCameraPath();
    EXPECT_EQ(camera.GetAngle(0.5), 35.0);
    EXPECT_EQ(camera.GetPose(0.5).mPosition, (Vector3{0, 0, 10}));
    EXPECT_EQ(mMain.GetLightSRCCtrl().GetVisibleNumber(), 1);

    Parameters_cls& x = camera.GetGroup(CameraPath_cls::kPosition).GetParameter(0);
    ParamEdit_cls(x).SetTimeDependent(true);
    ParamEdit_cls(x).SetKey(1.0, KeyFrame_cls::kLinear, 8.0);
    EXPECT_DOUBLE_EQ(camera.GetPose(0.25).mPosition[0], 2.0);
    // Keys stay at their frames when the scene grows, those of constants too, which are not in the way.
    mMain.GetTimeCtrl().SetMaxFrameCommand(200, TimeCtrl_cls::KeyRemap::DoRemap);
    EXPECT_DOUBLE_EQ(x.GetKeys().back().mTime, 0.5);
    GCUndoList.UndoCurrent();
    EXPECT_DOUBLE_EQ(x.GetKeys().back().mTime, 1.0);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(x.GetKeyNumber(), 1);

    LightSRC_cls& light = mMain.GetLightSRCCtrl().GetLight(0);
    EXPECT_TRUE(light.GetGroup(LightSRC_cls::kDirection).IsShown());
    light.mType.mValue = LightSRC_cls::kFromPosition;
    mMain.FinishReading();
    EXPECT_FALSE(light.GetGroup(LightSRC_cls::kDirection).IsShown());
    EXPECT_TRUE(light.GetGroup(LightSRC_cls::kPosition).IsShown());
    EXPECT_FALSE(mMain.GetLightSRCCtrl().GetLight(1).GetGroup(LightSRC_cls::kAmbient).IsShown());
}

TEST_F(MainTest, ExportedFilesAreReadBackWithTheSameLayout) {
    mFolder.Write("s0000.dat", DefaultSnapshot(2.5F, 2,
                                               {{{1, 2, 3}, {4, 5, 6}, 0.5F, 7, 1, 8},
                                                {{-1, -2, -3}, {-4, -5, -6}, 0.25F, 9, 2, -8}}));
    struct Case {
        const char* file;
        std::vector<std::string> exporter;
        std::string bytes;
        std::vector<std::string> loader;
    };
    const Case cases[] = {
        {"o.txt", {}, "# index id type x y z radius value1\n0 7 1 1 2 3 0.5 8\n1 9 2 -1 -2 -3 0.25 -8\n", {}},
        {"o.bin", {}, ReadWholeFile(mFolder.File("s0000.dat")), {"DataLoadDataType=0"}},
        {"o.bin",
         {"DataExportGrammerHead=2 1 0", "DataExportGrammerBody=6 0 2 8"},
         Bytes(0, 2, 2.5F) + Bytes(7, 1.0F, 2.0F, 3.0F, 0, 8.0F) + Bytes(9, -1.0F, -2.0F, -3.0F, 0, -8.0F),
         {"DataLoadGrammerHead=2 1 0", "DataLoadGrammerBody=6 0 2 8"}},
        {"o.txt",
         {"DataExportGrammerHead=1 0", "DataExportGrammerBody=0 7 6 2"},
         "2\n2.5\n1 2 3 1 7 0\n-1 -2 -3 2 9 0\n",
         {"DataLoadDataType=1", "DataLoadGrammerHead=1 0", "DataLoadGrammerBody=0 7 6 2"}},
        {"o.bin",
         {"DataExportDataType=1"},
         "2.5\n2\n1 2 3 4 5 6 0.5 7 1 8\n-1 -2 -3 -4 -5 -6 0.25 9 2 -8\n",
         {"DataLoadDataType=1"}},
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments = {"--no-config", "--export", c.file, "s0000.dat"};
        for (const std::string& setting : c.exporter) arguments.insert(arguments.end(), {"--set", setting});
        const ProgramRun_cls run = RunProgram(arguments, mFolder.Path());
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_TRUE(ReadWholeFile(mFolder.File(c.file)) == c.bytes)
            << c.file << ": " << ::testing::PrintToString(c.exporter);
        if (c.loader.empty()) continue;
        arguments = {"--no-config", "--export", "back.txt", c.file};
        for (const std::string& setting : c.loader) arguments.insert(arguments.end(), {"--set", setting});
        EXPECT_EQ(RunProgram(arguments, mFolder.Path()).status, 0);
        EXPECT_NE(ReadWholeFile(mFolder.File("back.txt")).find(" -1 -2 -3 "), std::string::npos) << c.bytes;
    }
}

TEST_F(MainTest, AnExportNeverReplacesWhatItReads) {
    const std::string whole = DefaultSnapshot(2.5F, 1, {SampleParticle_cls{}});
    for (const char* name : {"s0000.dat", "s0001.dat"}) mFolder.Write(name, whole);
    const std::vector<std::vector<std::string>> jobs = {
        {"--export", "s%04d.dat", "--frames", "1", "s0000.dat"},
        {"--export", "s0001.dat", "--at", "0", "s0000.dat"}};
    for (std::vector<std::string> job : jobs) {
        job.insert(job.begin(), "--no-config");
        const ProgramRun_cls run = RunProgram(job, mFolder.Path());
        EXPECT_EQ(run.status, 1) << job[2];
        EXPECT_NE(run.err.find("s0001.dat is read here"), std::string::npos) << run.err;
        EXPECT_TRUE(ReadWholeFile(mFolder.File("s0001.dat")) == whole) << job[2];
    }
}

}  // namespace
