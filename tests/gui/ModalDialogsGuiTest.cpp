#include <gtest/gtest.h>
#include <wx/dialog.h>

#include "scene/clsCameraPath.h"
#include "support/gui/OpenWindow.h"

namespace {

TEST(ModalDialogsGuiTest, ClosingEndsTheDialogsBeforeTheWindow) {
    const auto isDialogOpen = [] {
        for (wxWindow* top : wxTopLevelWindows) {
            auto* dialog = dynamic_cast<wxDialog*>(top);
            if (dialog && dialog->IsModal()) return true;
        }
        return false;
    };
    for (const bool ofKeys : {false, true}) {
        OpenWindow_cls window;
        User_cls user;
        if (ofKeys) {
            wxTheApp->CallAfter(
                [&] { window.Main().GetCameraPath().GetGroup(CameraPath_cls::kPosition).CreateKeyDLG(); });
        } else {
            user.Press("ctrl+d");
        }
        ASSERT_TRUE(WaitFor(isDialogOpen)) << ofKeys;
        OnGui([&] { window.Frame()->Close(); });
        EXPECT_TRUE(WaitFor([&] { return !window.Frame(); })) << ofKeys;
    }
}

}  // namespace
