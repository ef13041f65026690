#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "pov/clsPovRayCtrl.h"
#include "pov/clsPovSceneFile.h"
#include "seam/clsClock.h"
#include "seam/clsEventSink.h"
#include "seam/clsTextCoding.h"
#include "support/FakeClock.h"
#include "support/RecordingSink.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

/// Renders without scenes, by scripts that stand in for the renderer.
class PovRenderTest : public ::testing::Test {
  protected:
    PovRenderTest() {
        Use("#!/bin/sh\ntouch \"${1%.ini}.png\"\n");
        mControl.mPathPovWork.SetText(FromBytes(mFolder.Path()));
        mControl.SetObserver([this](const PovRenderPool_cls::Outcome& outcome) {
            if (outcome.frame >= 0) mOutcomes.push_back(outcome);
        });
    }
    void Use(const std::string& script, mode_t mode = 0755) {
        chmod(mFolder.Write("fake", script).c_str(), mode);
        mControl.mPathPovRay.SetText(FromBytes(mFolder.File("fake")));
    }
    void Render(const std::vector<int>& frames, int renderers = 1) {
        mControl.StartRenderPovAnim(frames, renderers);
        PollUntil([this] { return !mControl.ProcessRenderPovAnim(); }, 2);
    }
    bool IsThere(const std::string& name) const { return fs::exists(mFolder.File(name)); }

    TempFolder_cls mFolder;
    PovRayCtrl_cls mControl;
    std::vector<PovRenderPool_cls::Outcome> mOutcomes;
};

TEST_F(PovRenderTest, AnAnimationIsRenderedInOrderAndReported) {
    RecordingSink_cls sink;
    testing::internal::CaptureStdout();
    Render({3, 4, 5});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Return Value=0\nReturn Value=0\nReturn Value=0\n");
    ASSERT_EQ(mOutcomes.size(), 3U);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(mOutcomes[i].frame, static_cast<int>(3 + i));
        EXPECT_EQ(mOutcomes[i].error, "");
        EXPECT_TRUE(fs::exists(ToBytes(mOutcomes[i].picture)));
    }
    EXPECT_EQ(sink.mPosted, std::vector<int>(3, EventSink_cls::kRendererReturned));
    EXPECT_FALSE(IsThere("povanim0003.log")) << "nothing to tell";
}

TEST_F(PovRenderTest, RendererTroubleIsToldInItsOwnWordsAndLeavesNoPicture) {
    struct Case {
        const char* script;
        mode_t mode;
        const char* said;
    };
    const Case cases[] = {
        {"#!/bin/sh\necho 'Fatal error in parser: no scene'\necho Render failed\nexit 3\n", 0755,
         "exit status 3): Fatal error in parser: no scene"},
        {"#!/bin/sh\ntouch \"${1%.ini}.png\"; exit 1\n", 0755, "exit status 1"},
        {"#!/bin/sh\ntouch \"${1%.ini}.png\"; kill -9 $$\n", 0755, "exit status 137): Killed"},
        {"#!/bin/sh\nprintf 'no space left\\n\\033[2J preview\\n'; exit 2\n", 0755,
         "exit status 2): no space left"},
        {"#!/bin/sh\nexit 0\n", 0755, "left no picture"},
        {"#!/bin/sh\n", 0644, "ermission denied"},
    };
    for (const Case& c : cases) {
        Use(c.script, c.mode);
        mOutcomes.clear();
        Render({0, 1});
        ASSERT_EQ(mOutcomes.size(), 2U) << "the next frame is tried";
        EXPECT_NE(ToBytes(mOutcomes[0].error).find(c.said), std::string::npos)
            << c.said << ": " << mOutcomes[0].error;
        EXPECT_FALSE(IsThere("povanim0000.png")) << c.said;
    }
    mControl.mPathPovRay.SetText("/nowhere/povray");
    mOutcomes.clear();
    Render({0});
    EXPECT_TRUE(mOutcomes.at(0).error.Contains("No such file")) << mOutcomes[0].error;
    mControl.mPathPovWork.SetText("/nowhere");
    Render({0});
    EXPECT_TRUE(mOutcomes.at(1).error.Contains("working directory of POV-Ray is missing"));
}

TEST_F(PovRenderTest, AnAbortEndsEverythingAndKeepsWholePictures) {
    // The renderer leaves a child behind and a picture that is only begun; it does not want to end.
    Use("#!/bin/sh\ntrap '' TERM\necho begun >\"${1%.ini}.png\"\n"
        "case $1 in *0.ini) exit 0;; esac\nsleep 60 & echo $! >child; wait; sleep 60\n");
    fs::last_write_time(mFolder.Write("povanim0002.png", "old"),
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    mControl.StartRenderPovAnim({0, 1, 2});
    PollUntil([this] { return !mControl.ProcessRenderPovAnim() || IsThere("child"); }, 2);
    PollUntil([this] { return !ReadWholeFile(mFolder.File("child")).empty(); }, 2);
    const pid_t child = std::stoi(ReadWholeFile(mFolder.File("child")));
    ASSERT_EQ(kill(child, 0), 0);
    mControl.AbortRenderPovAnim();
    EXPECT_FALSE(mControl.IsRendering());
    EXPECT_FALSE(mControl.ProcessRenderPovAnim());
    const fs::path process = "/proc/" + std::to_string(child);
    const auto isGone = [&] {
        std::ifstream stat(process / "stat");
        std::string number, name, state;
        return !(stat >> number >> name >> state) || state == "Z";
    };
    PollUntil(isGone, 2);
    EXPECT_TRUE(IsThere("povanim0000.png"));
    EXPECT_FALSE(IsThere("povanim0001.png"));
    EXPECT_EQ(ReadWholeFile(mFolder.File("povanim0002.png")), "old") << "not reached, not touched";
}

TEST_F(PovRenderTest, SeveralRenderersShareTheProcessors) {
    Use("#!/bin/sh\nnproc >\"${1%.ini}.png\"\n");
    const auto processors = static_cast<int>(ShellCommand_cls::GetProcessors().size());
    Render({0, 1, 2, 3, 4, 5, 6, 7}, processors + 5);
    ASSERT_EQ(mOutcomes.size(), 8U);
    for (const auto& outcome : mOutcomes) {
        EXPECT_EQ(outcome.error, "");
        EXPECT_EQ(std::stoi(ReadWholeFile(ToBytes(outcome.picture))), 1) << "one processor each";
    }
}

TEST_F(PovRenderTest, ALargeSceneIsWrittenInStepsAndCanBeGivenUp) {
    mControl.SetSceneWriter([](int, const wxString& name, bool, wxString*) {
        PovSceneFile_cls::Content content;
        content.cloud.looks.resize(1);
        content.cloud.items.assign(500000, {{1.0F, 2.0F, -3.0F}, 0.5F, 0});
        return std::make_unique<PovSceneFile_cls>(name + ".pov", std::move(content));
    });
    {
        FakeClock_cls clock;
        std::vector<double> shares;
        mControl.SetProgress([&](double share) {
            shares.push_back(share);
            clock.mNow += 1000;
            return true;
        });
        mControl.StartPovSnap(4, false);
        ASSERT_TRUE(mControl.ProcessRenderPovAnim());
        EXPECT_TRUE(mControl.IsBusy());
        ASSERT_EQ(shares.size(), 1U) << "windows live between the steps";
        EXPECT_LT(shares.back(), 0.5);
        mControl.AbortRenderPovAnim();
        EXPECT_FALSE(mControl.IsRendering());
        EXPECT_EQ(std::distance(fs::directory_iterator(mFolder.Path()), {}), 1) << "but the renderer";
    }
    mControl.SetProgress({});
    mControl.StartPovSnap(4, true);
    PollUntil([this] { return !mControl.ProcessRenderPovAnim(); }, 2);
    ASSERT_EQ(mOutcomes.size(), 1U);
    EXPECT_EQ(mOutcomes[0].error, "");
    const std::string text = ReadWholeFile(mFolder.File("povsnap0004.pov"));
    EXPECT_TRUE(text.starts_with("union {\nsphere{<1.0000000,2.0000000,-3.0000000>,0.5000000}\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 500002);
    EXPECT_TRUE(IsThere("povsnap0004.png"));
}

TEST_F(PovRenderTest, ThePostSceneCommandRunsAfterThePicture) {
    mControl.SetPostSceneCommand("ls povsnap0009.png >seen");
    testing::internal::CaptureStdout();
    ASSERT_TRUE(mControl.RenderByPovSnap(9));
    EXPECT_FALSE(mControl.RenderByPovSnap(10)) << "one at a time";
    PollUntil([this] { return !mControl.ProcessRenderPovAnim(); }, 2);
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(ReadWholeFile(mFolder.File("seen")), "povsnap0009.png\n");
    EXPECT_NE(printed.find("Return Value=0\nCommands=nice "), std::string::npos) << printed;
    EXPECT_NE(printed.find("\nPostSceneCommands=ls povsnap0009.png >seen\n"), std::string::npos) << printed;
}

}  // namespace
