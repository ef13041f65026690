#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "gui/clsMainGLCanvas.h"
#include "gui/clsTopHalfPanel.h"
#include "render/clsGLDrawData.h"
#include "support/MovingCloud.h"
#include "support/gui/OpenWindow.h"
#include "support/gui/User.h"

namespace {

using std::chrono::steady_clock;

/// So many spheres of many triangles take seconds.
constexpr int kSide = 130;
/// Percentages to do something at: the drawing may be interrupted, and the status bar tells of it.
constexpr int kEarly = 20;
constexpr int kShown = 40;
/// How long a finger is on a key.
constexpr int kFingerMs = 80;

/// The window with a scene that takes long to draw, and the user before it. While it is drawn the window
/// answers nobody but the user, so the drawing is watched by its percentage.
class LongDrawGuiTest : public ::testing::Test {
  protected:
    LongDrawGuiTest()
        : mWindow({WriteMovingCloud(mFolder, 1, kSide), "--set", "SEQ0TYPE0DrawType=2", "--set",
                   "SEQ0TYPE0DrawQuality=2"}) {}

    TopHalfPanel_cls& Views() { return mWindow.Frame()->GetViews(); }
    wxString Status(int field) {
        return OnGui([&] { return mWindow.Frame()->GetStatusBar()->GetStatusText(field); });
    }
    static bool WaitForDrawing(int least) {
        const auto end = steady_clock::now() + std::chrono::seconds(20);
        while (steady_clock::now() < end) {
            const int percentage = GLDrawData_cls::msPercentage;
            if (percentage >= least && percentage < 2 * least) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }
    static long long MsOf(const std::function<void()>& action) {
        const auto begin = steady_clock::now();
        action();
        return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - begin).count();
    }

    TempFolder_cls mFolder;
    User_cls mUser;
    OpenWindow_cls mWindow;
};

TEST_F(LongDrawGuiTest, EndsWhenTheUserWantsSomething) {
    ASSERT_TRUE(WaitFor([&] { return Views().IsDrawn(); }));
    const long long full = MsOf([&] {
        OnGui([&] { Views().Redraw(); });
        ASSERT_TRUE(WaitForDrawing(kEarly));
        ASSERT_TRUE(WaitFor([&] { return Views().IsDrawn(); }));
    });
    ASSERT_GT(full, 400) << "nothing to interrupt";
    const wxString all = wxString::Format("%d of %d particles drawn", kSide * kSide, kSide * kSide);
    EXPECT_EQ(Status(2), all);

    // A key is taken at once, and the picture comes back afterwards, first a coarse one.
    OnGui([&] { Views().Redraw(); });
    ASSERT_TRUE(WaitForDrawing(kEarly));
    bool wasCoarse = false;
    const auto look = [&] {
        wasCoarse = wasCoarse || mWindow.Frame()->GetStatusBar()->GetStatusText(2) != all;
    };
    EXPECT_LT(MsOf([&] {
                  mUser.Press("2", kFingerMs);
                  EXPECT_TRUE(WaitFor([&] {
                      look();
                      return Views().GetLayout() == 1;
                  }));
              }),
              full / 2);
    ASSERT_TRUE(WaitFor(
        [&] {
            look();
            return Views().IsDrawn();
        },
        60000));
    EXPECT_TRUE(wasCoarse);
    EXPECT_EQ(Status(2), all);
    mUser.Press("1");
    ASSERT_TRUE(WaitFor([&] { return Views().GetLayout() == 0 && Views().IsDrawn(); }, 60000));

    // Escape gives the drawing up: nothing is drawn until something changes.
    OnGui([&] { Views().Redraw(); });
    ASSERT_TRUE(WaitForDrawing(kShown));
    EXPECT_LT(MsOf([&] {
                  mUser.Press("Escape", kFingerMs);
                  EXPECT_TRUE(WaitFor([&] { return Views().IsDrawn(); }));
              }),
              full / 2);
    GLDrawData_cls::msPercentage = -1;
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    EXPECT_EQ(GLDrawData_cls::msPercentage, -1);
    EXPECT_FALSE(Status(0).StartsWith("drawing"));
}

}  // namespace
