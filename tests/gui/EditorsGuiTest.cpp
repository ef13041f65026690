#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/scrolwin.h>
#include <wx/slider.h>
#include <wx/textctrl.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "data/clsPDataSeqCtrl.h"
#include "data/clsPreference.h"
#include "gui/clsColorCurveCanvas.h"
#include "gui/clsEditorParts.h"
#include "gui/clsMainGLCanvas.h"
#include "gui/clsNumberField.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsColorCurveEdit.h"
#include "render/clsGLAttribute.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "support/gui/OpenWindow.h"
#include "timeline/clsUndoManager.h"

namespace {

struct Dialog {
    const char* title;
    void (*open)(wxWindow* parent, FrameContext_cls& context);
};

const std::vector<Dialog> kDialogs = {{"Color Curve Editor", OpenColorCurveEditor},
                                      {"View Settings", OpenViewSettings},
                                      {"Light Sources", OpenLightSources},
                                      {"Periodic Boundary Condition", OpenPeriodicBoundary},
                                      {"Preferences", OpenPreferences}};

/// Particles on a line, with value1 from 0 to 100.
std::string Line101() {
    std::vector<SampleParticle_cls> particles;
    for (int i = 0; i <= 100; ++i) {
        const auto part = static_cast<float>(i);
        particles.push_back({{part / 50 - 1, 0, 0}, {0, 0, 0}, 0.05F, i, 0, part});
    }
    return DefaultSnapshot(0.0F, 101, particles);
}

/// The program with data of known values, and a user before it.
class Desk_cls {
  public:
    Desk_cls() : mData(mFolder.Write("line0000.dat", Line101())), mWindow({mData}) {
        WaitFor([this] { return Context().seqCtrl.IsTheIndexLoaded(0); });
        LookAtView();
        // Opening was the first step, and gave bare data a look of their own.
        OnGui([this] {
            for (int i = 0; i < 4; ++i) Context().seqCtrl.GetActive().GetAttribute(i).SetToDefault();
            GCUndoList.Clear();
            EventSink_cls::PostToFrame(EventSink_cls::kRefreshPanels);
            EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
        });
    }

    FrameContext_cls& Context() { return mWindow.Context(); }
    FrameMain_cls* Frame() { return mWindow.Frame(); }
    GLAttribute_cls& Attribute() { return Context().seqCtrl.GetActive().GetAttribute(0); }
    ColorCurve_cls& Curve() { return Attribute().GetCurve(SnapAttribute_cls::kColor); }

    wxDialog* FindDialog(const wxString& title) {
        return FindWindowBelow<wxDialog>(
            Frame(), [&](wxDialog& dialog) { return dialog.GetTitle() == title && dialog.IsShown(); });
    }
    /// Opens it and waits until it takes keys.
    bool Open(const Dialog& dialog) {
        OnGui([&] { dialog.open(Frame(), Context()); });
        return WaitFor([&] { return FindDialog(dialog.title) && FindDialog(dialog.title)->IsActive(); });
    }
    /// Opens the editor on the first attribute's colours.
    bool OpenCurve() {
        OnGui([&] { Context().colorCurveCtrl.LinkColorCurve(Curve()); });
        return WaitFor([&] {
            wxDialog* dialog = FindDialog("Color Curve Editor");
            return dialog && dialog->IsActive();
        });
    }
    /// Where a control lies on the screen, by its window name. Gets the focus, so that its page scrolls to
    /// it.
    wxRect Find(const wxString& name) {
        wxWindow* window = OnGui([&] {
            return FindWindowBelow<wxWindow>(
                Frame(), [&](wxWindow& child) { return child.GetName() == name && child.IsShownOnScreen(); });
        });
        if (!window) throw std::runtime_error(("no control " + name).ToStdString());
        OnGui([&] { window->SetFocus(); });
        WaitFor([&] {
            wxScrolledWindow* page = nullptr;
            for (wxWindow* up = window; up && !page; up = up->GetParent())
                page = dynamic_cast<wxScrolledWindow*>(up);
            return window->HasFocus() && (!page || ScreenRect(*page).Contains(ScreenRect(*window)));
        });
        return OnGui([&] { return ScreenRect(*window); });
    }
    void Click(const wxString& name) {
        const wxRect place = Find(name);
        mUser.Click({place.x + place.width / 2, place.y + place.height / 2});
    }
    /// Types into a field in place of what is there.
    void Enter(const wxString& name, const std::string& text) {
        Click(name);
        mUser.Press("ctrl+a");
        mUser.Type(text);
        mUser.Press("Return");
    }
    User_cls& User() { return mUser; }
    wxRect GetView() {
        return OnGui([&] { return ScreenRect(*FindWindowBelow<MainGLCanvas_cls>(Frame())); });
    }
    /// The first view, when it has drawn.
    ScreenPicture_cls LookAtView() {
        WaitFor([&] { return FindWindowBelow<MainGLCanvas_cls>(Frame())->IsDrawn(); });
        return User_cls::Look(GetView());
    }
    /// Whether the view comes to look (or not to look) like this. A change is drawn a little later.
    bool ViewBecomes(const ScreenPicture_cls& picture, bool same) {
        for (int round = 0; round < 50; ++round) {
            if ((LookAtView() == picture) == same) return true;
            OnGui([] { wxMilliSleep(20); });
        }
        return false;
    }

  private:
    TempFolder_cls mFolder;
    std::string mData;
    OpenWindow_cls mWindow;
    User_cls mUser;
};

TEST(EditorsGuiTest, DialogsFitTheScreenAndCloseByEscape) {
    Desk_cls desk;
    for (const Dialog& entry : kDialogs) {
        ASSERT_TRUE(desk.Open(entry)) << entry.title;
        const wxRect place = OnGui([&] { return desk.FindDialog(entry.title)->GetRect(); });
        EXPECT_TRUE(place.width <= 1280 && place.height <= 800)
            << entry.title << ": " << place.width << " x " << place.height;
        desk.User().Press("Escape");
        EXPECT_TRUE(WaitFor([&] { return desk.FindDialog(entry.title) == nullptr; })) << entry.title;
    }
}

TEST(EditorsGuiTest, EveryControlSaysWhatItDoes) {
    Desk_cls desk;
    for (const Dialog& entry : kDialogs) desk.Open(entry);
    const wxString silent = OnGui([&] {
        wxString names;
        FindWindowBelow<wxControl>(desk.Frame(), [&](wxControl& control) {
            const bool edits = control.AcceptsFocus() && control.GetId() != wxID_CLOSE &&
                               (dynamic_cast<wxButton*>(&control) || dynamic_cast<wxChoice*>(&control) ||
                                dynamic_cast<wxTextCtrl*>(&control) || dynamic_cast<wxSlider*>(&control) ||
                                dynamic_cast<wxCheckBox*>(&control));
            if (edits && control.GetToolTipText().empty()) names += control.GetName() + "; ";
            return false;
        });
        return names;
    });
    EXPECT_EQ(silent, "");
}

TEST(EditorsGuiTest, ATemplateChangesThePictureAndUndoRestoresIt) {
    Desk_cls desk;
    OnGui([&] {
        desk.Curve().mUseColorCurve.mValue = true;
        desk.Curve().mScalingMax.mValue = 50;
    });
    ASSERT_TRUE(desk.OpenCurve());
    const wxRect view = desk.GetView();
    // Beside the view, whatever the window manager thinks of it at first.
    ASSERT_TRUE(WaitFor([&] {
        wxDialog* dialog = desk.FindDialog("Color Curve Editor");
        const bool beside = dialog->GetScreenPosition().x > view.GetRight();
        if (!beside) dialog->Move(view.GetRight() + 10, view.y);
        return beside;
    }));
    wxMilliSleep(300);  // windows go to their places behind the toolkit's back
    // The settings above were made behind the program's back: this change shows them.
    desk.Click("Data range");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Min/Max"; }));
    const ScreenPicture_cls before = desk.LookAtView();
    desk.Click("Spectrum");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() == "Color Curve Template"; }));
    EXPECT_TRUE(desk.ViewBecomes(before, false));
    desk.User().Press("ctrl+z");
    ASSERT_TRUE(WaitFor([] { return GCUndoList.GetUndoName() != "Color Curve Template"; }));
    EXPECT_TRUE(desk.ViewBecomes(before, true));
    EXPECT_TRUE(OnGui([&] { return desk.Curve().IsOn() && desk.Curve().mScalingMax.mValue == 100; }));
}

TEST(EditorsGuiTest, AKeyDraggedOnTheGradientIsOneStep) {
    Desk_cls desk;
    ASSERT_TRUE(desk.OpenCurve());
    const auto at = [&](double position) {
        return OnGui([&] {
            auto* canvas = FindWindowBelow<ColorCurveCanvas_cls>(desk.Frame());
            return canvas->ClientToScreen(canvas->GetPoint(position));
        });
    };
    const auto positions = [&] { return ColorCurveEdit_cls(desk.Curve()).GetPositions(); };
    desk.User().DoubleClick(at(0.5));
    ASSERT_TRUE(WaitFor([&] { return positions().size() == 3; }));
    desk.User().Drag(at(0.5), at(0.75));
    // The step is there from the first motion on; the drag ends with the capture of the mouse.
    ASSERT_TRUE(WaitFor([&] { return std::abs(positions()[1] - 0.75) <= 0.01 && !wxWindow::GetCapture(); }));
    EXPECT_EQ(OnGui([] { return GCUndoList.GetUndoName(); }), "Move Key");
    EXPECT_EQ(OnGui([] {
                  GCUndoList.UndoCurrent();
                  return GCUndoList.GetUndoName();
              }),
              "Insert Key");
    EXPECT_NEAR(OnGui([&] { return positions()[1]; }), 0.5, 0.01);
    desk.User().Click(at(0.5));
    desk.User().Press("Delete");
    EXPECT_TRUE(WaitFor([&] { return positions().size() == 2; }));
}

TEST(EditorsGuiTest, RangeButtonsTakeTheRangeOfTheData) {
    Desk_cls desk;
    ASSERT_TRUE(desk.OpenCurve());
    const auto range = [&] {
        return std::pair(desk.Curve().mScalingMin.mValue, desk.Curve().mScalingMax.mValue);
    };
    desk.Click("Data range");
    EXPECT_TRUE(WaitFor([&] { return range() == std::pair(0.0F, 100.0F); }));
    desk.Click("1 - 99 %");
    EXPECT_TRUE(WaitFor([&] { return range() == std::pair(1.0F, 99.0F); }));
    desk.User().Press("ctrl+z");
    EXPECT_TRUE(WaitFor([&] { return range() == std::pair(0.0F, 100.0F); }));
}

TEST(EditorsGuiTest, ControlsOfAnAttributeChangeSettingAndPicture) {
    Desk_cls desk;
    struct Case {
        const char* control;
        const char* entry;  ///< typed into a field; null: the next choice is taken by the Down key
        std::function<bool(GLAttribute_cls&)> changed;
        std::function<void(GLAttribute_cls&)> prepare = {};
    };
    const auto billboards = [](GLAttribute_cls& a) { a.mDrawType.mValue = SnapAttribute_cls::kBillboard; };
    const auto phong = [](GLAttribute_cls& a) {
        a.mDrawType.mValue = SnapAttribute_cls::kSphere;
        a.mShaderType.mValue = GLAttribute_cls::kPhong;
    };
    const auto spheres = [](GLAttribute_cls& a) { a.mDrawType.mValue = SnapAttribute_cls::kSphere; };
    const std::vector<Case> cases = {
        {"Point Size", "3", [](GLAttribute_cls& a) { return a.mPointSize.mValue == 3; }},
        {"Type", nullptr, [](GLAttribute_cls& a) { return a.mDrawType.mValue == 1; }},
        {"Blending", nullptr, [](GLAttribute_cls& a) { return a.mBlendType.mValue == 1; }, billboards},
        {"Radius Factor", "0.5", [](GLAttribute_cls& a) { return a.mRadiusFactor.mValue == 0.5F; },
         billboards},
        {"Alpha Factor", "0.25", [](GLAttribute_cls& a) { return a.mAlphaFactor.mValue == 0.25F; },
         billboards},
        {"Shader", nullptr, [](GLAttribute_cls& a) { return a.mShaderType.mValue == 3; }, phong},
        {"Radius Type", nullptr, [](GLAttribute_cls& a) { return a.mRadiusType.mValue == 1; }, spheres},
    };
    for (const Case& one : cases) {
        OnGui([&] {
            desk.Attribute().SetToDefault();
            if (one.prepare) one.prepare(desk.Attribute());
            GCUndoList.Clear();
            EventSink_cls::PostToFrame(EventSink_cls::kRefreshPanels);
            EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
        });
        wxMilliSleep(200);  // the events posted above are taken meanwhile
        const ScreenPicture_cls before = desk.LookAtView();
        if (one.entry) {
            desk.Enter(one.control, one.entry);
        } else {
            OnGui([&] {
                FindWindowBelow<wxChoice>(desk.Frame(), [&](wxChoice& choice) {
                    return choice.GetName() == one.control;
                })->SetFocus();
            });
            desk.User().Press("Down");
        }
        EXPECT_TRUE(WaitFor([&] { return one.changed(desk.Attribute()); }, 5000)) << one.control;
        EXPECT_TRUE(desk.ViewBecomes(before, false)) << one.control;
        OnGui([] { GCUndoList.UndoCurrent(); });
        EXPECT_FALSE(OnGui([] { return GCUndoList.CanUndo(); })) << one.control << " is more than one step";
        EXPECT_TRUE(desk.ViewBecomes(before, true)) << one.control;
    }
}

TEST(EditorsGuiTest, WrongEntriesAreMarkedAndNotTaken) {
    Desk_cls desk;
    const auto field = [&] {
        return FindWindowBelow<NumberField_cls>(
            desk.Frame(), [](NumberField_cls& one) { return one.GetText().GetName() == "Point Size"; });
    };
    for (const char* text : {"abc", "0", "5000", "2.5", "1,5", "nan", "3 4", "1e400"}) {
        desk.Enter("Point Size", text);
        EXPECT_TRUE(WaitFor([&] { return field()->IsMarked(); }, 5000)) << text;
        EXPECT_FALSE(OnGui([] { return GCUndoList.CanUndo(); })) << text;
        desk.User().Press("Escape");
        EXPECT_TRUE(
            WaitFor([&] { return !field()->IsMarked() && field()->GetText().GetValue() == "10"; }, 5000))
            << text;
    }
    desk.User().Press("Up");
    EXPECT_TRUE(WaitFor([&] { return desk.Attribute().mPointSize.mValue == 11; }, 5000)) << "Up steps";
}

TEST(EditorsGuiTest, ASliderDragIsOneStep) {
    Desk_cls desk;
    const wxRect place = desk.Find("Point Size slider");
    const int y = place.y + place.height / 2;
    const int from = OnGui([&] { return desk.Attribute().mPointSize.mValue; });
    ASSERT_EQ(from, 10);
    // The handle stands at 9 of 39 parts of the slider's way.
    const int x = place.x + place.width / 4;
    desk.User().Drag({x, y}, {place.GetRight() - 8, y});
    ASSERT_TRUE(WaitFor([&] { return desk.Attribute().mPointSize.mValue > 30; }, 5000));
    OnGui([] { GCUndoList.UndoCurrent(); });
    EXPECT_EQ(OnGui([&] { return desk.Attribute().mPointSize.mValue; }), 10);
    EXPECT_FALSE(OnGui([] { return GCUndoList.CanUndo(); }));
}

TEST(EditorsGuiTest, PreferencesAreTheDefaultsOfTheNextStart) {
    TempFolder_cls folder;
    const std::vector<std::string> arguments = {"--config", folder.Write("Varnholt3Configure.txt", "\n")};
    User_cls user;
    {
        OpenWindow_cls window(arguments);
        OnGui([&] {
            OpenPreferences(window.Frame(), window.Context());
            FindWindowBelow<wxTextCtrl>(window.Frame(), [](wxTextCtrl& text) {
                return text.GetName() == "Critical";
            })->SetFocus();
        });
        user.Press("ctrl+a");
        user.Type("777");
        user.Press("Return");
        EXPECT_TRUE(WaitFor([&] { return window.Main().GetMemoryLimitMB() == 777; }));
        OnGui([&] {
            GCUndoList.MarkSaved();
            window.Frame()->Close();
        });
        EXPECT_TRUE(WaitFor([&] { return !window.Frame(); }));
    }
    OpenWindow_cls window(arguments);
    EXPECT_EQ(OnGui([&] { return window.Main().GetMemoryLimitMB(); }), 777);
    OnGui([&] { window.Context().preference.SetToDefault(); });
}

}  // namespace
