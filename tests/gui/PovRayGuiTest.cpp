#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/image.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <filesystem>

#include "gui/clsPovRayGUI.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "support/gui/OpenWindow.h"
#include "timeline/clsTimeCtrl.h"

namespace {

constexpr int kFrames = 20;
constexpr const char* kPovRay = "/usr/bin/povray";

class PovRayGuiTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!std::filesystem::exists(kPovRay))
            GTEST_SKIP() << kPovRay << " is not installed (Debian's package povray)";
        for (int i = 0; i < kFrames; ++i) {
            const auto x = 0.1F * static_cast<float>(i);
            char name[32];
            std::snprintf(name, sizeof name, "s%04d.dat", i);
            mFolder.Write(
                name, DefaultSnapshot(
                          x, 2, {{{x, 0, 0}, {0, 0, 0}, 1, 0, 0, 0}, {{-1, 1, 0}, {0, 0, 0}, 1, 1, 0, 0}}));
        }
        mWindow = std::make_unique<OpenWindow_cls>(std::vector<std::string>{mFolder.File("s0000.dat")});
        OnGui([&] {
            PovRayCtrl_cls& control = mWindow->Context().povRayCtrl;
            control.mPathPovWork.SetText(wxString::FromUTF8(mFolder.Path().string()));
            control.GetFormat().mDisplay.mValue = false;
            control.GetFormat().mCameraWidth.mValue = 64;
            control.GetFormat().mCameraHeight.mValue = 48;
            OpenPovRay(mWindow->Frame(), mWindow->Context());
        });
        ASSERT_TRUE(WaitFor([&] { return Find<wxDialog>("dialog") != nullptr; }));
    }
    /// A window below the main one by its name.
    template <class Window>
    Window* Find(const wxString& name) {
        return FindWindowBelow<Window>(mWindow->Frame(),
                                       [&](Window& window) { return window.GetName() == name; });
    }
    void Click(const wxString& button) {
        mUser.Click(OnGui([&] {
            const wxRect place = ScreenRect(*Find<wxButton>(button));
            return place.GetPosition() + wxSize(place.width / 2, place.height / 2);
        }));
    }
    int CountPictures() {
        int whole = 0;
        for (const auto& entry : std::filesystem::directory_iterator(mFolder.Path())) {
            const std::string name = entry.path().filename();
            EXPECT_EQ(name.find("pov-state"), std::string::npos) << name;
            if (entry.path().extension() != ".png" || !name.starts_with("povanim")) continue;
            wxImage image;
            EXPECT_TRUE(image.LoadFile(wxString::FromUTF8(entry.path().string()))) << name;
            EXPECT_EQ(image.GetSize(), wxSize(64, 48)) << name;
            ++whole;
        }
        return whole;
    }

    TempFolder_cls mFolder;
    std::unique_ptr<OpenWindow_cls> mWindow;
    User_cls mUser;
};

TEST_F(PovRayGuiTest, AnAnimationShowsProgressAndCanBeAborted) {
    PovRayCtrl_cls& control = mWindow->Context().povRayCtrl;
    const auto gauge = [&] { return Find<wxGauge>("Progress")->GetValue(); };
    const wxRect place = OnGui([&] { return Find<wxDialog>("dialog")->GetRect(); });
    EXPECT_TRUE(place.width <= 1280 && place.height <= 800) << place.width << " x " << place.height;
    Click("Render Animation");
    ASSERT_TRUE(WaitFor([&] { return control.GetDone() >= 3; }, 60000));
    const int seen = OnGui(gauge);
    EXPECT_GE(seen, 100);
    ASSERT_TRUE(OnGui([&] { return Find<wxButton>("Render Animation")->GetLabel() == "Abort"; }));
    Click("Render Animation");
    ASSERT_TRUE(WaitFor([&] { return !control.IsRendering(); }));
    const int whole = OnGui([&] { return CountPictures(); });
    EXPECT_GE(whole, 3);
    EXPECT_LT(whole, kFrames) << "aborted in the middle";
    EXPECT_TRUE(OnGui([&] { return Find<wxStaticText>("Status")->GetLabel().StartsWith("Aborted"); }));

    Click("Render Animation");
    ASSERT_TRUE(WaitFor([&] { return control.GetDone() == kFrames && !control.IsRendering(); }, 120000));
    EXPECT_EQ(OnGui(gauge), 1000);
    EXPECT_EQ(OnGui([&] { return CountPictures(); }), kFrames);
    EXPECT_TRUE(OnGui([&] { return Find<wxButton>("Render Animation")->GetLabel() == "Render Animation"; }));
}

TEST_F(PovRayGuiTest, APathThatIsTypedIsJudgedAtOnce) {
    const auto word = [&](const char* row) {
        return OnGui([&] { return Find<wxStaticText>(wxString(row) + " exists")->GetLabel(); });
    };
    EXPECT_EQ(word("Renderer"), "File exists.");
    EXPECT_EQ(word("Working directory"), "File exists.");
    mUser.Click(OnGui([&] {
        const wxRect place = ScreenRect(*Find<wxTextCtrl>("Renderer"));
        return place.GetPosition() + wxSize(place.width - 5, place.height / 2);
    }));
    mUser.Press("End");
    mUser.Press("x");
    EXPECT_TRUE(
        WaitFor([&] { return Find<wxStaticText>("Renderer exists")->GetLabel() == "File dose not exist."; }));
}

}  // namespace
