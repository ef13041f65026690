#include <gtest/gtest.h>
#include <wx/dialog.h>

#include "scene/clsCameraPath.h"
#include "seam/clsUserMessage.h"
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
    enum Kind { OfData, OfKeys, Box };
    for (const Kind kind : {OfData, OfKeys, Box}) {
        OpenWindow_cls window;
        User_cls user;
        if (kind == Box) {
            wxTheApp->CallAfter([] { UserMessage_cls::Tell("Warning", "nobody answers"); });
        } else if (kind == OfKeys) {
            wxTheApp->CallAfter(
                [&] { window.Main().GetCameraPath().GetGroup(CameraPath_cls::kPosition).CreateKeyDLG(); });
        } else {
            user.Press("ctrl+d");
        }
        // What is done on the window's thread from here on is done inside the box.
        ASSERT_TRUE(kind == Box || WaitFor(isDialogOpen)) << kind;
        OnGui([&] { window.Frame()->End(); });
        EXPECT_TRUE(WaitFor([&] { return !window.Frame(); })) << kind;
    }
}

}  // namespace
