#include <gtest/gtest.h>
#include <wx/msgdlg.h>

#include "scene/clsCameraPath.h"
#include "seam/clsUserMessage.h"
#include "support/gui/OpenWindow.h"

namespace {

TEST(ModalDialogsGuiTest, ClosingEndsTheDialogsBeforeTheWindow) {
    const auto isDialogOpen = [] {
        for (wxWindow* top : wxTopLevelWindows) {
            auto* dialog = dynamic_cast<wxDialog*>(top);
            const bool isBox = dynamic_cast<wxMessageDialog*>(top) && top->GetHandle();
            if (isBox || (dialog && dialog->IsModal())) return true;
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
        ASSERT_TRUE(WaitFor(isDialogOpen)) << kind;
        OnGui([&] { window.Frame()->End(); });
        EXPECT_TRUE(WaitFor([&] { return !window.Frame(); })) << kind;
    }
}

}  // namespace
