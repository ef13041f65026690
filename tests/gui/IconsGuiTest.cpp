#include <gtest/gtest.h>
#include <wx/anybutton.h>
#include <wx/clrpicker.h>

#include "support/gui/OpenWindow.h"

namespace {

TEST(IconsGuiTest, EveryButtonOfTheMainWindowShowsSomething) {
    OpenWindow_cls window;
    OnGui([&] {
        int icons = 0;
        FindWindowBelow<wxAnyButton>(window.Frame(), [&](wxAnyButton& button) {
            // The toolkit's own controls are made of buttons too.
            if (button.GetName() == wxColourPickerWidgetNameStr) return false;
            const wxBitmap bitmap = button.GetBitmap();
            EXPECT_TRUE(!button.GetLabel().empty() || bitmap.IsOk())
                << "no icon: " << button.GetName() << " (" << button.GetToolTipText() << ")";
            EXPECT_FALSE(bitmap.IsOk() && button.GetToolTipText().empty())
                << "no tooltip: " << button.GetName();
            icons += bitmap.IsOk() ? 1 : 0;
            return false;
        });
        EXPECT_GT(icons, 10);
    });
}

}  // namespace
