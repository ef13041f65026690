#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/textctrl.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

#include "gui/clsMainGLCanvas.h"
#include "gui/clsTopHalfPanel.h"
#include "gui/clsViewLayout.h"
#include "output/clsImageFile.h"
#include "seam/clsDiagnostics.h"
#include "support/MovingCloud.h"
#include "support/Program.h"
#include "support/gui/DialogWatch.h"
#include "support/gui/OpenWindow.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr int kSnapshots = 12;
/// Brighter than the background and than the overlay's thin text can make many pixels.
constexpr int kBright = 90;
constexpr int kSomePixels = 150;

/// The window with a moving cloud, and the user before it.
class FrameMainGuiTest : public ::testing::Test {
  protected:
    void Open(std::vector<std::string> arguments) {
        mWindow.reset();
        mWindow = std::make_unique<OpenWindow_cls>(arguments);
    }
    void OpenCloud() {
        Open({WriteMovingCloud(mFolder, kSnapshots)});
        ASSERT_TRUE(WaitFor([this] { return Views().IsDrawn() && View(0).IsDrawn(); }));
        ASSERT_TRUE(SeesParticles(0));
    }

    FrameMain_cls& Frame() { return *mWindow->Frame(); }
    TopHalfPanel_cls& Views() { return Frame().GetViews(); }
    MainGLCanvas_cls& View(size_t panel) { return Views().GetCanvas(panel); }
    TimeCtrl_cls& Time() { return mWindow->Main().GetTimeCtrl(); }

    wxRect ViewRect(size_t panel) {
        return OnGui([&] { return ScreenRect(View(panel)); });
    }
    wxPoint Middle(size_t panel) {
        const wxRect rect = ViewRect(panel);
        return rect.GetPosition() + rect.GetSize() / 2;
    }
    ScreenPicture_cls Picture(size_t panel) { return User_cls::Look(ViewRect(panel)); }
    /// The screen follows the program a moment later.
    bool SeesParticles(size_t panel) {
        for (int i = 0; i < 100; ++i) {
            if (Picture(panel).CountBrighter(kBright) > kSomePixels) return true;
            OnGui([] {});
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }
    /// The picture once nothing moves any more.
    ScreenPicture_cls RestingPicture(size_t panel) {
        WaitFor([this] { return Views().IsDrawn(); });
        ScreenPicture_cls last = Picture(panel);
        for (int i = 0; i < 100; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            ScreenPicture_cls now = Picture(panel);
            if (now == last) break;
            last = std::move(now);
        }
        return last;
    }
    bool WaitForFrame(int frame) {
        return WaitFor([&] { return Time().GetFrame() == frame; });
    }
    wxString UndoName() {
        return OnGui([] { return GCUndoList.GetUndoName(); });
    }
    PositionAndDirection_cls Pose() {
        return OnGui([&] { return Views().GetActiveCamera().Get().mPose; });
    }
    bool WaitForDialog(const wxString& title) {
        if (!WaitFor([&] { return mDialogs->IsOpen(title); })) return false;
        // It is on the screen, with the keyboard, a moment later.
        std::this_thread::sleep_for(std::chrono::milliseconds(600));
        return true;
    }
    /// Waits for a dialog and presses the keys until it is gone.
    bool Answer(const wxString& title, const std::string& keys) {
        if (!WaitForDialog(title)) return false;
        for (int i = 0; i < 20; ++i) {
            mUser.Press(keys);
            if (WaitFor([&] { return !mDialogs->IsOpen(title); }, 1000)) return true;
        }
        return false;
    }

    void SetUp() override {
        mDialogs = OnGui([] { return std::make_unique<DialogWatch_cls>(); });
    }
    void TearDown() override {
        mWindow.reset();
        OnGui([this] { mDialogs.reset(); });
    }

    TempFolder_cls mFolder;
    User_cls mUser;
    std::unique_ptr<OpenWindow_cls> mWindow;
    std::unique_ptr<DialogWatch_cls> mDialogs;
};

TEST_F(FrameMainGuiTest, PlaysStopsAndSteps) {
    OpenCloud();
    EXPECT_TRUE(OnGui([&] { return Frame().GetTitle().Contains("Varnholt 3 v 0.80"); }));
    const ScreenPicture_cls first = RestingPicture(0);
    mUser.Press("space");
    ASSERT_TRUE(WaitFor([&] { return Time().GetFrame() >= 3; }));
    mUser.Press("space");
    ASSERT_TRUE(WaitFor([&] { return !Time().IsPlaying(); }));
    mUser.Press("Home");
    ASSERT_TRUE(WaitForFrame(0));
    EXPECT_EQ(RestingPicture(0), first);
    mUser.Press("Right");
    ASSERT_TRUE(WaitForFrame(1));
    mUser.Press("End");
    ASSERT_TRUE(WaitForFrame(kSnapshots - 1));
    EXPECT_NE(RestingPicture(0), first);
    mUser.Press("Left");
    ASSERT_TRUE(WaitForFrame(kSnapshots - 2));
    // Playing from near the end stops there.
    mUser.Press("space");
    ASSERT_TRUE(WaitFor([&] { return Time().GetFrame() == kSnapshots - 1 && !Time().IsPlaying(); }));
}

TEST_F(FrameMainGuiTest, AnOpenMenuHasTheKeys) {
    OpenCloud();
    // Along the bar to View, and down to the second layout.
    for (const char* key : {"F10", "Right", "Right", "Down", "Down", "Return"}) mUser.Press(key);
    ASSERT_TRUE(WaitFor([&] { return Views().GetLayout() == 1; }));
    EXPECT_EQ(OnGui([&] { return Time().GetFrame(); }), 0);
    // And the window has them again.
    mUser.Press("Right");
    EXPECT_TRUE(WaitForFrame(1));
}

TEST_F(FrameMainGuiTest, UndoTakesTheWholeOpeningBackAndPlayingKeepsTheRedo) {
    OpenCloud();
    EXPECT_EQ(UndoName(), "Open Data");
    mUser.Press("2");
    ASSERT_TRUE(WaitFor([&] { return Views().GetLayout() == 1; }));
    mUser.Press("ctrl+z");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.CanRedo(); }));
    mUser.Press("space");
    ASSERT_TRUE(WaitFor([&] { return Time().GetFrame() >= 1; }));
    mUser.Press("space");
    ASSERT_TRUE(WaitFor([&] { return !Time().IsPlaying(); }));
    EXPECT_NE(OnGui([] { return GCUndoList.GetRedoName(); }), "");
    mUser.Press("ctrl+z");
    ASSERT_TRUE(WaitFor([] { return !GCUndoList.CanUndo(); }));
    // Nothing is left to save, to count or to play.
    EXPECT_FALSE(OnGui([&] { return Frame().GetFiles().IsModified(); }));
    EXPECT_TRUE(WaitFor([&] { return mWindow->Main().GetUsedTotalMemoryMB() == 0; }));
    mUser.Press("space");
    mUser.Press("ctrl+shift+z");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Open Data"; }));
    EXPECT_FALSE(OnGui([&] { return Time().IsPlaying(); }));
    EXPECT_TRUE(SeesParticles(0));
}

TEST_F(FrameMainGuiTest, TwoCameraKeysAnimate) {
    OpenCloud();
    mUser.Press("k");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Key Camera"; }));
    mUser.Press("End");
    ASSERT_TRUE(WaitForFrame(kSnapshots - 1));
    const PositionAndDirection_cls before = Pose();
    mUser.Drag(Middle(0), Middle(0) + wxPoint(150, 40));
    ASSERT_TRUE(WaitFor([&] { return Views().GetActiveCamera().Get().mPose.mPosition != before.mPosition; }));
    const PositionAndDirection_cls moved = Pose();
    mUser.Press("k");
    ASSERT_TRUE(WaitFor([&] {
        return Parameters_cls::State(mWindow->Main()
                                         .GetCameraPath()
                                         .GetGroup(CameraPath_cls::kPosition)
                                         .GetParameter(0)
                                         .GetState())
                   .keys.size() == 2;
    }));
    EXPECT_NEAR(Pose().mPosition[0], moved.mPosition[0], 1e-5);
    mUser.Press("Home");
    ASSERT_TRUE(WaitForFrame(0));
    EXPECT_NEAR(Pose().mPosition[0], before.mPosition[0], 1e-5);
    for (int i = 0; i < kSnapshots / 2; ++i) mUser.Press("Right");
    ASSERT_TRUE(WaitForFrame(kSnapshots / 2));
    const double between = Pose().mPosition[0];
    EXPECT_GT(std::abs(between - before.mPosition[0]), 1e-3);
    EXPECT_GT(std::abs(between - moved.mPosition[0]), 1e-3);
}

TEST_F(FrameMainGuiTest, EachGestureIsOneStep) {
    OpenCloud();
    const wxPoint at = Middle(0);
    const PositionAndDirection_cls before = Pose();
    struct Gesture {
        const char* name;
        std::function<void()> make;
    };
    const Gesture gestures[] = {
        {"Turn View", [&] { mUser.Drag(at, at + wxPoint(80, -30)); }},
        {"Move View", [&] { mUser.Drag(at, at + wxPoint(40, 20), 2); }},
        {"Move View", [&] { mUser.Drag(at, at + wxPoint(-40, 20), 1, "shift"); }},
        {"Zoom View", [&] { mUser.Wheel(at, 3); }},
    };
    for (const Gesture& gesture : gestures) {
        SCOPED_TRACE(gesture.name);
        const size_t steps = OnGui([] { return GCUndoList.GetCursor(); });
        gesture.make();
        ASSERT_TRUE(WaitFor([&] {
            return GCUndoList.GetUndoName() == gesture.name && !Views().GetActiveCamera().IsMoving();
        }));
        EXPECT_NE(Pose().mPosition, before.mPosition);
        mUser.Press("ctrl+z");
        ASSERT_TRUE(WaitFor([&] { return GCUndoList.GetCursor() == steps; }));
        EXPECT_EQ(Pose().mPosition, before.mPosition);
        EXPECT_EQ(Pose().mAnchor, before.mAnchor);
        // A press right after another would be a double click.
        std::this_thread::sleep_for(std::chrono::milliseconds(600));
    }
    mUser.DoubleClick(at);
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Set Anchor"; }));
    mUser.Press("f");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Fit to Data"; }));
}

TEST_F(FrameMainGuiTest, LayoutsShowTheirPanels) {
    OpenCloud();
    for (const unsigned int layout : {4U, 3U, 2U, 1U, 0U}) {
        SCOPED_TRACE(ViewLayout::Names()[layout]);
        mUser.Press(std::to_string(layout + 1));
        ASSERT_TRUE(WaitFor([&] { return Views().GetLayout() == layout && Views().IsDrawn(); }));
        const auto shown = static_cast<size_t>(ViewLayout::Count(layout));
        for (size_t panel = 0; panel < 4; ++panel) {
            EXPECT_EQ(OnGui([&] { return View(panel).IsShownOnScreen(); }), panel < shown);
            if (panel >= shown) continue;
            EXPECT_TRUE(SeesParticles(panel)) << panel;
        }
    }
    // A window that is no larger than a pixel, and back.
    OnGui([&] {
        Frame().SetMinSize(wxSize(1, 1));
        Frame().SetSize(1, 1);
    });
    WaitFor([&] { return View(0).GetClientSize().x < 100; }, 2000);
    OnGui([&] { Frame().SetSize(1100, 800); });
    ASSERT_TRUE(WaitFor([&] { return View(0).GetClientSize().x > 300 && View(0).IsDrawn(); }));
    EXPECT_TRUE(SeesParticles(0));
}

TEST_F(FrameMainGuiTest, KeysOfAFieldStayInTheField) {
    OpenCloud();
    const wxRect field = OnGui([&] {
        return ScreenRect(*FindWindowBelow<wxTextCtrl>(
            &Views(), [](wxTextCtrl& text) { return text.GetName() == "View Angle"; }));
    });
    mUser.DoubleClick(field.GetPosition() + field.GetSize() / 2);
    mUser.Press("ctrl+a");
    mUser.Type("23");
    mUser.Press("Return");
    ASSERT_TRUE(WaitFor([&] { return Views().GetActiveCamera().Get().mAngle == 23.0; }));
    EXPECT_EQ(OnGui([&] { return Views().GetLayout(); }), 0U);
}

TEST_F(FrameMainGuiTest, ASavedProjectOpensAgainAndLooksTheSameHeadless) {
    const std::string config = mFolder.File("config.txt");
    std::ofstream{config};
    const std::string project = mFolder.File("saved.vhp");
    Open({"--config", config, WriteMovingCloud(mFolder, kSnapshots)});
    ASSERT_TRUE(SeesParticles(0));
    const wxPoint at = Middle(0);
    mUser.Drag(at, at + wxPoint(60, 50));
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Turn View"; }));
    EXPECT_TRUE(OnGui([&] { return Frame().GetTitle().StartsWith("*"); }));
    mUser.Press("ctrl+s");
    ASSERT_TRUE(WaitForDialog("Save Project As"));
    mUser.Press("ctrl+a");
    mUser.Type(project);
    mUser.Press("Return");
    ASSERT_TRUE(WaitFor([&] { return Frame().GetTitle().StartsWith("saved.vhp"); }));
    mUser.MoveTo(wxPoint(5, 5));
    const ScreenPicture_cls saved = RestingPicture(0);
    mUser.Press("ctrl+q");
    ASSERT_TRUE(WaitFor([&] { return mWindow->Frame() == nullptr; }));

    Open({"--config", config});
    mUser.Press("alt+f");
    mUser.Press("r");
    mUser.Press("1");
    ASSERT_TRUE(WaitFor([&] { return Frame().GetTitle().StartsWith("saved.vhp"); }));
    // The window manager's frames are not known when the window is placed: the same size to the pixel.
    const wxSize wanted(saved.width, saved.height);
    const auto missing = [&] { return OnGui([&] { return wanted - View(0).GetClientSize(); }); };
    for (int i = 0; i < 20 && missing() != wxSize(0, 0); ++i) {
        OnGui([&] { Frame().SetSize(Frame().GetSize() + (wanted - View(0).GetClientSize())); });
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    ASSERT_EQ(missing(), wxSize(0, 0)) << missing().x << " x " << missing().y;
    ASSERT_TRUE(SeesParticles(0));
    mUser.MoveTo(wxPoint(5, 5));
    EXPECT_EQ(RestingPicture(0), saved);

    const std::string picture = mFolder.File("headless.png");
    const ProgramRun_cls run =
        RunProgram({"--no-config", "--quiet", "--render", picture, "--frames", "0", "--size",
                    std::to_string(saved.width) + "x" + std::to_string(saved.height), project});
    ASSERT_EQ(run.status, 0) << run.err;
    const wxImage image(picture);
    ASSERT_EQ(image.GetWidth(), saved.width);
    int different = 0;
    for (int y = 0; y < saved.height; ++y) {
        for (int x = 0; x < saved.width; ++x) {
            const ScreenPicture_cls::Colour colour = saved.At(x, y);
            different += std::abs(image.GetRed(x, y) - colour.red) > 1 ||
                         std::abs(image.GetGreen(x, y) - colour.green) > 1 ||
                         std::abs(image.GetBlue(x, y) - colour.blue) > 1;
        }
    }
    EXPECT_EQ(different, 0);
}

TEST_F(FrameMainGuiTest, ClosingAsksForChangesOnly) {
    OpenCloud();
    mUser.Press("2");
    ASSERT_TRUE(WaitFor([&] { return Views().GetLayout() == 1; }));
    mUser.Press("ctrl+q");
    ASSERT_TRUE(Answer("Unsaved changes", "Escape"));
    ASSERT_NE(OnGui([&] { return mWindow->Frame(); }), nullptr);
    mUser.Press("ctrl+z");
    ASSERT_TRUE(WaitFor([&] { return !Frame().GetFiles().IsModified(); }));
    mUser.Press("space");
    ASSERT_TRUE(WaitFor([&] { return Time().IsPlaying(); }));
    mUser.Press("ctrl+q");
    EXPECT_TRUE(WaitFor([&] { return mWindow->Frame() == nullptr; }));
}

TEST_F(FrameMainGuiTest, ProjectsAndTheEndComeWhileDataAreRead) {
    // Large enough to be read for a while; zeros cost no disk.
    constexpr int kMany = 4000000;
    const std::string large = mFolder.Write("large0000.dat", Bytes(0.0F, kMany));
    std::filesystem::resize_file(large, 8 + 40ULL * kMany);
    const std::string project = mFolder.Write("small.vhp", "TimeMaxFrame=7\n");
    Open({large});
    OnGui([&] { Frame().GetFiles().OpenProject(project); });
    EXPECT_EQ(OnGui([&] { return Time().GetMaxFrame(); }), 7);
    EXPECT_EQ(OnGui([&] { return mWindow->Main().GetSeqCtrl().GetActive().GetSeqLength(); }), 0);
    OnGui([&] { Frame().GetFiles().OpenData(large); });
    OnGui([&] { Frame().Close(true); });
    EXPECT_TRUE(WaitFor([&] { return mWindow->Frame() == nullptr; }));
}

TEST_F(FrameMainGuiTest, ReadingThatIsStoppedLeavesTheRestAlone) {
    constexpr int kMany = 2000000;
    for (const char* name : {"large0000.dat", "large0001.dat"}) {
        mFolder.Write(name, Bytes(0.0F, kMany));
        std::filesystem::resize_file(mFolder.File(name), 8 + 40ULL * kMany);
    }
    Open({});
    const auto isRead = [&](int index) { return mWindow->Main().IsTheIndexLoaded(index); };
    OnGui([&] { Frame().GetFiles().OpenData(wxString::FromUTF8(mFolder.File("large0000.dat"))); });
    ASSERT_TRUE(WaitFor([&] { return isRead(0); }));
    OnGui([&] {
        mWindow->Context().seqCtrl.ClearData(PDataSeqCtrl_cls::kActive, PDataSequence_cls::kAll, false);
        Frame().GetPlayback().Start(1);
        Frame().GetPlayback().StopReading();
    });
    EXPECT_FALSE(OnGui([&] { return Time().IsPlaying() || isRead(0); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    EXPECT_TRUE(OnGui([&] { return Frame().GetPlayback().IsReadingStopped() && !isRead(0); }));
    mUser.Press("Right");
    ASSERT_TRUE(WaitFor([&] { return isRead(1); }));
    mUser.Press("Left");
    EXPECT_TRUE(WaitFor([&] { return isRead(0); }));
}

TEST_F(FrameMainGuiTest, WhatIsNoProjectOpensNothing) {
    const std::string picture =
        mFolder.Write("picture.vhp", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    const std::string folder = mFolder.File("folder.vhp");
    std::filesystem::create_directory(folder);
    Open({});
    for (const std::string& path : {picture, folder, mFolder.File("missing.vhp")}) {
        SCOPED_TRACE(path);
        OnGui([&] { Frame().CallAfter([this, path] { Frame().GetFiles().OpenProject(path); }); });
        ASSERT_TRUE(Answer("Warning", "Return"));
        EXPECT_TRUE(OnGui([&] { return Frame().GetTitle().StartsWith("untitled"); }));
    }
    const std::string gone =
        mFolder.Write("gone.vhp", "TimeMaxFrame=9\nDataSequence0=NONE\n/nowhere/a0000.dat\n");
    OnGui([&] { Frame().CallAfter([this, gone] { Frame().GetFiles().OpenProject(gone); }); });
    ASSERT_TRUE(Answer("Can not open file", "Return"));
    EXPECT_EQ(OnGui([&] { return Time().GetMaxFrame(); }), 9);
    ASSERT_TRUE(WaitFor([&] { return Views().IsDrawn(); }));
}

TEST_F(FrameMainGuiTest, UnsavedWorkIsOfferedAtTheNextStart) {
    const std::string config = mFolder.File("config.txt");
    std::ofstream{config};
    Open({"--config", config, WriteMovingCloud(mFolder, kSnapshots)});
    mUser.Press("3");
    ASSERT_TRUE(WaitFor([&] { return Views().GetLayout() == 2; }));
    // What a hard stop does before the program ends.
    OnGui([] { DoLastWork(); });
    mWindow.reset();

    const auto openAgain = [&] {
        // What was not saved comes before the file that the program is started with.
        auto opened = std::async(std::launch::async, [&] {
            return std::make_unique<OpenWindow_cls>(
                std::vector<std::string>{"--config", config, mFolder.File("none.vhp")});
        });
        EXPECT_TRUE(Answer("Unsaved work", "alt+o"));
        mWindow = opened.get();
        ASSERT_TRUE(WaitFor([&] { return Frame().GetTitle().StartsWith("*untitled"); }));
        EXPECT_EQ(OnGui([&] { return Views().GetLayout(); }), 2U);
        EXPECT_TRUE(SeesParticles(0));
    };
    openAgain();

    // The program is told to end while a dialog is open.
    mUser.Press("F1");
    ASSERT_TRUE(WaitFor([&] { return wxTopLevelWindows.GetCount() > 1; }));
    OnGui([&] { Frame().End(); });
    ASSERT_TRUE(WaitFor([&] { return mWindow->Frame() == nullptr; }));
    mWindow.reset();
    openAgain();
}

}  // namespace
