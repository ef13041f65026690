#include <gtest/gtest.h>
#include <wx/choice.h>
#include <wx/dialog.h>

#include "data/clsPDataSeqCtrl.h"
#include "gui/clsEditorParts.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsGLAttribute.h"
#include "support/gui/OpenWindow.h"
#include "timeline/clsUndoManager.h"

namespace {

/// A window with a name somewhere below the root, on the GUI thread.
[[maybe_unused]] wxWindow* Named(wxWindow* root, const wxString& name) {
    return FindWindowBelow<wxWindow>(root, [&](wxWindow& window) { return window.GetName() == name; });
}

struct Dialog {
    const char* title;
    void (*open)(wxWindow* parent, FrameContext_cls& context);
};

const std::vector<Dialog> kDialogs = {{"Color Curve Editor", OpenColorCurveEditor},
                                      {"View Settings", OpenViewSettings},
                                      {"Light Sources", OpenLightSources},
                                      {"Periodic Boundary Condition", OpenPeriodicBoundary},
                                      {"Preferences", OpenPreferences}};

TEST(EditorsGuiTest, DialogsFitTheScreenAndCloseByEscape) {
    OpenWindow_cls window;
    User_cls user;
    OnGui([&] {
        window.Context().colorCurveCtrl.LinkColorCurve(
            window.Context().seqCtrl.GetActive().GetAttribute(0).GetCurve(0));
    });
    for (const Dialog& entry : kDialogs) {
        OnGui([&] { entry.open(window.Frame(), window.Context()); });
        const auto find = [&]() -> wxDialog* {
            return FindWindowBelow<wxDialog>(window.Frame(), [&](wxDialog& dialog) {
                return dialog.GetTitle() == entry.title && dialog.IsShown();
            });
        };
        ASSERT_TRUE(WaitFor([&] { return find() && find()->IsActive(); })) << entry.title;
        const wxRect place = OnGui([&] { return find()->GetRect(); });
        EXPECT_TRUE(place.width <= 1280 && place.height <= 800)
            << entry.title << ": " << place.width << " x " << place.height;
        if (const char* folder = std::getenv("SHOTS"))
            std::system(wxString::Format("import -window root '%s/%s.png'", folder, entry.title).utf8_str());
        user.Press("Escape");
        EXPECT_TRUE(WaitFor([&] { return find() == nullptr; })) << entry.title;
    }
}

}  // namespace
