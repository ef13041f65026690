#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "gui/clsDemo.h"
#include "support/TempFolder.h"
#include "support/gui/OpenWindow.h"
#include "support/gui/User.h"

namespace {

TEST(DemoGuiTest, IsMadeOnceAndOpens) {
    const TempFolder_cls cache;
    setenv("XDG_CACHE_HOME", cache.Path().c_str(), 1);
    OpenWindow_cls window;
    const wxString project = OnGui([&] { return MakeDemo(window.Frame()); });
    const std::string first = cache.File("varnholt3/demo/galaxies0000.dat");
    ASSERT_TRUE(std::filesystem::exists(first));
    const auto made = std::filesystem::last_write_time(first);
    OnGui([&] {
        EXPECT_EQ(MakeDemo(window.Frame()), project);
        window.Frame()->GetFiles().Open(project);
        EXPECT_EQ(window.Main().GetSeqCtrl().GetActive().GetSeqLength(), 101);
    });
    EXPECT_EQ(std::filesystem::last_write_time(first), made);
    // The progress dialog has had the keyboard.
    EXPECT_TRUE(WaitFor([&] { return window.Frame()->IsActive() && wxWindow::FindFocus(); }));
    User_cls().Press("space");
    EXPECT_TRUE(WaitFor([&] { return window.Main().GetTimeCtrl().GetFrame() > 0; }));
    unsetenv("XDG_CACHE_HOME");
}

}  // namespace
