#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

#include "gui/clsKeyFrameGUI.h"
#include "gui/clsSceneGUI.h"
#include "gui/clsTimelineCanvas.h"
#include "gui/clsTimelinePanel.h"
#include "support/TimelineScene.h"
#include "support/gui/User.h"

namespace {

/// The timeline panel alone in a window, with a user before it.
class TimelineGuiTest : public ::testing::Test {
  protected:
    void SetUp() override {
        OnGui([this] {
            mScene = std::make_unique<TimelineScene>();
            mFrame = new wxFrame(nullptr, wxID_ANY, "Timeline", wxPoint(0, 0), wxSize(1200, 420));
            mPanel = new TimelinePanel_cls(mFrame, mScene->time, mScene->trees);
            auto* sizer = new wxBoxSizer(wxVERTICAL);
            sizer->Add(mPanel, wxSizerFlags(1).Expand());
            mFrame->SetSizer(sizer);
            mFrame->Show();
            mFrame->Raise();
        });
        WaitFor([this] { return mFrame->IsActive() && mFrame->IsShownOnScreen(); });
    }
    void TearDown() override {
        OnGui([this] {
            delete mFrame;
            mScene.reset();
        });
    }

    /// Where a frame is on the screen, in a row counted from the lanes' top; row -1 is the frame numbers.
    wxPoint At(double frame, double row) {
        return OnGui([&] {
            auto* canvas = FindWindowBelow<TimelineCanvas_cls>(mFrame);
            const TimelineTheme_cls theme(*canvas);
            const int names = theme.rowHeight * 15;
            TimelineScale_cls scale;
            scale.SetSize(canvas->GetClientSize().x - names, mScene->time.GetMaxFrame());
            const double y =
                row < 0 ? theme.rulerHeight * 0.25 : theme.rulerHeight + (row + 0.5) * theme.rowHeight;
            return canvas->ClientToScreen(wxPoint(names + wxRound(scale.ToX(frame)), wxRound(y)));
        });
    }
    bool HasFrames(const std::vector<double>& expected) {
        return WaitFor(
            [&] {
                const std::vector<double> frames = mScene->GetFrames();
                return frames.size() == expected.size() &&
                       std::equal(frames.begin(), frames.end(), expected.begin(),
                                  [](double a, double b) { return std::abs(a - b) < 1e-6; });
            },
            5000);
    }

    static constexpr int kPositionRow = 1;

    std::unique_ptr<TimelineScene> mScene;
    wxFrame* mFrame = nullptr;
    TimelinePanel_cls* mPanel = nullptr;
    User_cls mUser;
};

TEST_F(TimelineGuiTest, KeysAreDraggedSelectedCopiedAndDeleted) {
    mUser.Drag(At(20, kPositionRow), At(35, kPositionRow));
    EXPECT_TRUE(HasFrames({0, 35, 60}));
    mUser.Press("Right");
    EXPECT_TRUE(HasFrames({0, 36, 60})) << "the dragged key is selected and moves by a frame";
    OnGui([] {
        GCUndoList.UndoCurrent();
        GCUndoList.UndoCurrent();
    });
    EXPECT_TRUE(HasFrames({0, 20, 60}));

    mUser.Drag(At(15, kPositionRow - 0.3), At(70, kPositionRow + 0.4));
    mUser.Press("ctrl+c");
    mUser.Click(At(30, -1));
    EXPECT_TRUE(WaitFor([this] { return mScene->time.GetFrame() == 30; }));
    mUser.Press("ctrl+v");
    EXPECT_TRUE(HasFrames({0, 20, 30, 60, 70})) << "pasted at the frame that was clicked";
    mUser.Press("Delete");
    EXPECT_TRUE(HasFrames({0, 20, 60}));
    mUser.Drag(At(60, kPositionRow), At(80, kPositionRow));
    EXPECT_TRUE(HasFrames({0, 20, 80}));
}

TEST_F(TimelineGuiTest, ScrubbingAndTheAreasAreOneStepEach) {
    const auto frame = [this](int expected) {
        return WaitFor([=, this] { return mScene->time.GetFrame() == expected; }, 5000);
    };
    mUser.Drag(At(10, -1), At(64, -1));
    EXPECT_TRUE(frame(64));
    OnGui([] { GCUndoList.UndoCurrent(); });
    EXPECT_TRUE(frame(0));
    EXPECT_FALSE(OnGui([] { return GCUndoList.CanUndo(); }));

    const auto workArea = [this] { return mScene->time.GetSettings().GetWorkArea(); };
    const int up = OnGui([this] {
        const TimelineTheme_cls theme(*FindWindowBelow<TimelineCanvas_cls>(mFrame));
        return theme.rowHeight / 2 + theme.barHeight * 3 / 2 + 2;
    });
    const auto bar = [&](int at) { return At(at, 0) - wxPoint(0, up); };
    mUser.Drag(bar(100), bar(70));
    EXPECT_TRUE(WaitFor([&] { return workArea() == FrameRange{0, 70}; }, 5000));
    mUser.Drag(bar(30), bar(50));
    EXPECT_TRUE(WaitFor([&] { return workArea() == FrameRange{20, 90}; }, 5000)) << "the bar as a whole";
    OnGui([] {
        GCUndoList.UndoCurrent();
        GCUndoList.UndoCurrent();
    });
    EXPECT_TRUE(WaitFor([&] { return workArea() == FrameRange{0, 100}; }, 5000));
}

TEST_F(TimelineGuiTest, TypesByTheMenuAndValuesByTheDialog) {
    const auto key = [this](int i) {
        return mScene->position.GetParameter(0).GetKeys().at(static_cast<size_t>(i));
    };
    bool isOpen = false;
    OnGui([&] { mFrame->Bind(wxEVT_MENU_OPEN, [&isOpen](wxMenuEvent&) { isOpen = true; }); });
    mUser.Click(At(60, kPositionRow), 3);
    ASSERT_TRUE(WaitFor([&] { return isOpen; }));
    // The types come after inserting, editing, the clipboard's four and selecting all.
    for (int i = 0; i < 12; ++i) mUser.Press("Down");
    mUser.Press("Return");
    EXPECT_TRUE(WaitFor([&] { return key(2).mType != KeyFrame_cls::kLinear; }, 5000));
    OnGui([] { GCUndoList.UndoCurrent(); });
    EXPECT_EQ(OnGui([&] { return key(2).mType; }), KeyFrame_cls::kLinear);

    mUser.DoubleClick(At(60, kPositionRow));
    const auto dialog = [] {
        for (wxWindow* window : wxTopLevelWindows) {
            if (auto* found = dynamic_cast<KeyFrameGUI_cls*>(window); found && found->IsActive())
                return found;
        }
        return static_cast<KeyFrameGUI_cls*>(nullptr);
    };
    ASSERT_TRUE(WaitFor([&] { return dialog() != nullptr; }));
    mUser.Type("1000");
    mUser.Press("Return");
    mUser.Press("ctrl+a");
    mUser.Type("55");
    for (int i = 0; i < 2; ++i) mUser.Press("Tab");
    mUser.Type("7.5");
    mUser.Press("Return");
    EXPECT_TRUE(WaitFor([&] { return dialog() == nullptr; }, 5000));
    EXPECT_TRUE(HasFrames({0, 20, 55})) << "the frame outside of the scene was refused";
    EXPECT_DOUBLE_EQ(OnGui([&] { return key(2).mValue; }), 7.5);
    OnGui([] { GCUndoList.UndoCurrent(); });
    EXPECT_TRUE(HasFrames({0, 20, 60}));
    EXPECT_DOUBLE_EQ(OnGui([&] { return key(2).mValue; }), 5.0) << "one step";
}

TEST_F(TimelineGuiTest, ValuesAreDraggedInTheCurves) {
    Parameters_cls& z = mScene->position.GetParameter(2);
    const auto value = [&] { return z.GetKeyFrameValue(1); };
    mUser.Click(OnGui([this] {
        const auto isCurve = [](wxToggleButton& button) { return button.GetName() == "curve"; };
        const wxRect rect = ScreenRect(*FindWindowBelow<wxToggleButton>(mFrame, isCurve));
        return rect.GetPosition() + rect.GetSize() / 2;
    }));
    ASSERT_TRUE(WaitFor([this] { return FindWindowBelow<TimelineCanvas_cls>(mFrame)->IsShowingCurves(); }));
    mUser.Click(At(50, kPositionRow));

    // A second view of the same layout tells where z's middle key is drawn.
    const wxPoint key = OnGui([&] {
        auto* canvas = FindWindowBelow<TimelineCanvas_cls>(mFrame);
        const TimelineTheme_cls theme(*canvas);
        TimelineModel_cls model(mScene->time, mScene->trees);
        model.mTree.Update();
        model.SetCurrentRow(kPositionRow);
        TimelineView_cls view(model);
        view.ShowCurves(true);
        view.SetLayout(canvas->GetClientSize(), theme);
        view.mCurves.FitValues();
        const int x = wxRound(model.ToX(0.2));
        int y = 0;
        while (y < 500 &&
               (!view.mCurves.FindKey(theme, x, y) || view.mCurves.FindKey(theme, x, y)->parameter != &z))
            ++y;
        return canvas->ClientToScreen(
            wxPoint(view.GetNamesWidth() + x, theme.rulerHeight + view.GetLanesHeight() + y + theme.keySize));
    });
    mUser.Drag(key, key + wxPoint(2, 40));
    EXPECT_TRUE(WaitFor([&] { return value() < 15.0; }, 5000)) << value();
    EXPECT_EQ(OnGui([&] { return z.FindKey(0.2); }), 1) << "a little aside is straight down";
    OnGui([] { GCUndoList.UndoCurrent(); });
    EXPECT_DOUBLE_EQ(OnGui(value), 20.0);
    EXPECT_FALSE(OnGui([] { return GCUndoList.CanUndo(); }));
}

TEST_F(TimelineGuiTest, TheSceneDialogIsOneStepAndRefusesWhatCannotBe) {
    const struct {
        const char* length;
        const char* first;
        const char* last;
        int expectedLength;
        FrameRange expectedArea;
    } kCases[] = {
        {"50", "0", "100", 50, {0, 50}},
        {"200", "0", "100", 200, {0, 200}},
        {"200", "0", "90", 200, {0, 90}},
        {"100", "30", "60", 100, {30, 60}},
        {"40", "30", "35", 40, {30, 35}},
        // Refused
        {"-1", "0", "100", 100, {0, 100}},
        {"9e99", "0", "100", 100, {0, 100}},
        {"ten", "0", "100", 100, {0, 100}},
        {"100", "0", "101", 100, {0, 100}},
        {"100", "70", "60", 100, {0, 100}},
        {"50.5", "0", "100", 100, {0, 100}},
    };
    for (const auto& test : kCases) {
        OnGui([&] {
            TimeCtrl_cls& time = mScene->time;
            SceneGUI_cls dialog(mFrame, time, 0);
            const auto type = [&](const char* name, const char* entry) {
                const auto named = [&](wxTextCtrl& text) { return text.GetName() == name; };
                FindWindowBelow<wxTextCtrl>(&dialog, named)->SetValue(entry);
            };
            type("Scene Length", test.length);
            type("Work Area", test.first);
            type("to", test.last);
            const bool changes = test.expectedLength != 100 || test.expectedArea != FrameRange{0, 100};
            EXPECT_EQ(dialog.Apply(), changes) << test.length;
            EXPECT_EQ(time.GetMaxFrame(), test.expectedLength) << test.length;
            EXPECT_EQ(time.GetSettings().GetWorkArea(), test.expectedArea) << test.length;
            if (changes) GCUndoList.UndoCurrent();
            EXPECT_FALSE(GCUndoList.CanUndo()) << test.length;
            EXPECT_EQ(time.GetSettings().GetWorkArea(), (FrameRange{0, 100})) << test.length;
        });
    }
}

}  // namespace
