#include <gtest/gtest.h>

#include "support/gui/OpenWindow.h"

namespace {

TEST(FrameMainGuiTest, OpensUnderItsTitle) {
    OpenWindow_cls window;
    EXPECT_TRUE(OnGui([&] { return window.Frame()->GetTitle().Contains("Varnholt 3 v 0.80"); }));
}

}  // namespace
