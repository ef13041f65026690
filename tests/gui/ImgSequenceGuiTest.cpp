#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/image.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <filesystem>
#include <random>

#include "core/clsMain.h"
#include "gui/clsImgSequenceGUI.h"
#include "support/Program.h"
#include "support/RecordingMessage.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "support/gui/OpenWindow.h"

namespace {

namespace fs = std::filesystem;

/// A window with a few snapshots open, and the dialog that saves pictures of them.
class ImgSequenceGuiTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::mt19937 random(5);
        std::normal_distribution<float> place(0.0F, 10.0F);
        for (int file = 0; file < 5; ++file) {
            std::vector<SampleParticle_cls> particles(300);
            for (int i = 0; i < 300; ++i) {
                particles[static_cast<size_t>(i)] = {
                    {place(random), place(random), place(random)}, {}, 1.0F, i, i % 4, 0.5F};
            }
            mFolder.Write("s000" + std::to_string(file) + ".dat",
                          DefaultSnapshot(static_cast<float>(file), 300, particles));
        }
        mWindow = std::make_unique<OpenWindow_cls>(std::vector<std::string>{mFolder.File("s0000.dat")});
        OnGui([this] {
            Main_cls& main = mWindow->Main();
            mDialog = &ImgSequenceGUI_cls::Open(
                *mWindow->Frame(),
                {.timeCtrl = main.GetTimeCtrl(),
                 .program = VARNHOLT_PROGRAM,
                 .saveCopy =
                     [this, &main](const wxString& path) {
                         return main.SaveProjectFile(path, true) == 1 &&
                                main.SaveProjectFile(mFolder.File("copy.vhp"), true) == 1;
                     },
                 .getPanel = [&main]() -> const PanelSettings_cls& { return main.GetPanelSettings(0); },
                 .getViewSize = [] { return wxSize(200, 100); },
                 .tell = [this](const wxString& words) { mTold = words; }});
        });
        ASSERT_TRUE(WaitFor([this] { return mDialog->IsActive(); }));
    }
    void TearDown() override { mWindow.reset(); }

    template <class Control>
    Control& Named(const wxString& name) {
        return *FindWindowBelow<Control>(mDialog, [&](Control& found) { return found.GetName() == name; });
    }
    void Enter(const wxString& name, const wxString& text) {
        OnGui([&] { Named<wxTextCtrl>(name).SetValue(text); });
    }
    void ClickButton(const wxString& label) {
        mUser.Click(OnGui([&] {
            auto* button = FindWindowBelow<wxButton>(
                mDialog, [&](wxButton& found) { return found.GetLabelText() == label; });
            const wxRect place = ScreenRect(*button);
            return wxPoint(place.x + place.width / 2, place.y + place.height / 2);
        }));
    }
    bool HasEnded() {
        // And says so.
        return WaitFor(
            [this] {
                auto* save = FindWindowBelow<wxButton>(
                    mDialog, [](wxButton& found) { return found.GetLabelText() == "Save"; });
                return !mDialog->IsSaving() && save->IsEnabled();
            },
            60000);
    }

    TempFolder_cls mFolder;
    std::unique_ptr<OpenWindow_cls> mWindow;
    ImgSequenceGUI_cls* mDialog = nullptr;
    User_cls mUser;
    wxString mTold;
};

TEST_F(ImgSequenceGuiTest, SavesWhatTheCommandLineSaves) {
    Enter("Pictures", mFolder.File("window%04d.png"));
    Enter("Width", "160");
    Enter("Height", "120");
    EXPECT_EQ(OnGui([this] { return Named<wxChoice>("Size").GetStringSelection(); }), "Custom");
    ClickButton("Save");
    ASSERT_TRUE(WaitFor([this] { return fs::exists(mFolder.File("window0004.png")); }, 60000));
    ASSERT_TRUE(HasEnded());
    const auto written = fs::last_write_time(mFolder.File("window0000.png"));
    {
        // What is there is asked for; the answer is No.
        RecordingMessage_cls message;
        ClickButton("Save");
        ASSERT_TRUE(WaitFor([&] { return !message.mSaid.empty(); }));
        EXPECT_TRUE(OnGui([&] { return message.mSaid[0].text.StartsWith("5 of the 5 pictures"); }));
        EXPECT_FALSE(OnGui([this] { return mDialog->IsSaving(); }));
    }
    EXPECT_EQ(fs::last_write_time(mFolder.File("window0000.png")), written);
    const ProgramRun_cls run = RunProgram({"--no-config", "--render", mFolder.File("line%04d.png"),
                                           "--frames", "0:4", "--size", "160x120", mFolder.File("copy.vhp")});
    ASSERT_EQ(run.status, 0) << run.err;
    for (int i = 0; i < 5; ++i) {
        const std::string number = "000" + std::to_string(i) + ".png";
        EXPECT_TRUE(ReadWholeFile(mFolder.File("window" + number)) ==
                    ReadWholeFile(mFolder.File("line" + number)))
            << number;
    }
}

TEST_F(ImgSequenceGuiTest, CancellingLeavesWholePicturesOnly) {
    OnGui([this] {
        mWindow->Main().GetTimeCtrl().SetMaxFrameCommand(4000, TimeCtrl_cls::KeyRemap::DoNotRemap);
        Named<wxChoice>("Frames").SetSelection(2);
        wxCommandEvent event(wxEVT_CHOICE);
        Named<wxChoice>("Frames").ProcessWindowEvent(event);
    });
    Enter("Pictures", mFolder.File("w%04d.png"));
    ClickButton("Save");
    ASSERT_TRUE(WaitFor([this] { return fs::exists(mFolder.File("w0003.png")); }, 60000));
    ClickButton("Cancel Saving");
    ASSERT_TRUE(HasEnded());
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(mFolder.Path())) {
        const std::string name = entry.path().filename().string();
        if (name[0] != 'w') continue;
        EXPECT_EQ(entry.path().extension(), ".png") << "left behind: " << name;
        EXPECT_TRUE(wxImage(wxString::FromUTF8(entry.path().string())).IsOk()) << name;
        ++pictures;
    }
    EXPECT_TRUE(OnGui([this] {
        return FindWindowBelow<wxStaticText>(
            mDialog, [](wxStaticText& text) { return text.GetLabel().StartsWith("Cancelled after"); });
    }));
    EXPECT_GE(pictures, 4);
    EXPECT_LT(pictures, 4000);
    mUser.Press("Escape");
    EXPECT_TRUE(WaitFor([this] { return !mDialog->IsShown(); })) << "the keys went to a disabled button";
}

}  // namespace
