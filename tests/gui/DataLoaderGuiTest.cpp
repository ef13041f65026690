#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/grid.h>
#include <wx/listctrl.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include "gui/clsDataLoaderGUI.h"
#include "render/clsGLAttribute.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"
#include "support/gui/OpenWindow.h"
#include "timeline/clsUndoManager.h"

namespace {

std::string DumpStep(int step, const char* columns = "id type x y z") {
    constexpr int kAtoms = 60;
    const bool hasValue = std::string(columns).ends_with("q");
    std::string text = "ITEM: TIMESTEP\n" + std::to_string(step) + "\nITEM: NUMBER OF ATOMS\n" +
                       std::to_string(kAtoms) + "\nITEM: BOX BOUNDS pp pp pp\n0 6\n0 6\n0 6\nITEM: ATOMS " +
                       columns + "\n";
    for (int i = 0; i < kAtoms; ++i) {
        // Atoms change their order from step to step.
        const int id = (i * 7 + step) % kAtoms + 1;
        text += std::to_string(id) + " " + std::to_string(id % 2 + 1) + " " + std::to_string(id % 6) + " " +
                std::to_string(id / 12) + " " + std::to_string(step / 250) +
                (hasValue ? " " + std::to_string(id) : "") + "\n";
    }
    return text;
}

class DataLoaderGuiTest : public testing::Test {
  protected:
    DataLoaderGUI_cls* Dialog() {
        for (wxWindow* window : wxTopLevelWindows) {
            if (auto* dialog = dynamic_cast<DataLoaderGUI_cls*>(window)) return dialog;
        }
        return nullptr;
    }
    bool OpenDialog() {
        mUser.Press("ctrl+d");
        return WaitFor([this] { return Dialog() && Dialog()->IsActive(); });
    }
    /// A busy machine may need its time to read and draw.
    static constexpr int kLongMs = 90000;

    template <class Window>
    Window* Find(const wxString& name) {
        return FindWindowBelow<Window>(Dialog(),
                                       [&name](Window& window) { return window.GetName() == name; });
    }
    wxString Misfit() {
        return OnGui([this] { return Find<wxStaticText>("Misfit")->GetLabelText(); });
    }
    bool IsOpen(int snapshots) {
        return WaitFor(
            [this, snapshots] {
                return !Dialog() && Sequence().GetSeqLength() == snapshots &&
                       Sequence().GetSnap(0).IsItLoaded();
            },
            kLongMs);
    }
    /// The last opening of data, and what the window made of them after it: it frames them.
    static void UndoOpening() {
        OnGui([] {
            while (GCUndoList.CanUndo() && GCUndoList.GetUndoName() != "Open Data") GCUndoList.UndoCurrent();
            GCUndoList.UndoCurrent();
        });
    }
    PDataSequence_cls& Sequence() { return mWindow.Main().GetSeqCtrl().GetActive(); }

    const TempFolder_cls mFolder;
    OpenWindow_cls mWindow;
    User_cls mUser;
};

TEST_F(DataLoaderGuiTest, RealFilesOpenWithoutTypingALayoutAndPlay) {
    for (const int step : {0, 1000, 200}) mFolder.Write("dump." + std::to_string(step), DumpStep(step));
    std::string all;
    for (int step = 0; step < 50; ++step) all += DumpStep(step * 10, "id type x y z q");
    mFolder.Write("all.lammpstrj", all);
    struct Case {
        const char* file;
        int snapshots;
        double lastTime;
        bool byValue;
    };
    for (const Case& c : {Case{"dump.0", 3, 1000.0, false}, Case{"all.lammpstrj", 50, 490.0, true}}) {
        ASSERT_TRUE(OpenDialog());
        mUser.Press("alt+f");
        // The file chooser is the toolkit's own: a slash begins a path there.
        ASSERT_TRUE(WaitFor([this] { return Dialog() && !Dialog()->IsActive(); }));
        mUser.Type(mFolder.File(c.file));
        mUser.Press("Return");
        ASSERT_TRUE(WaitFor([this] { return Dialog() && Dialog()->IsActive(); }));
        EXPECT_EQ(Misfit(), "");
        EXPECT_EQ(OnGui([this] { return Find<wxGrid>("First particles")->GetNumberRows(); }), 10);
        mUser.Press("Return");
        ASSERT_TRUE(IsOpen(c.snapshots)) << c.file;

        OnGui([&] {
            const DataLoader_cls& loader = mWindow.Main().GetDataLoader();
            EXPECT_EQ(loader.mInterpolateType.mValue, DataLoader_cls::kLinear);
            EXPECT_EQ(loader.mVariableNumber.mValue, DataLoader_cls::kVariable);
            EXPECT_EQ(mWindow.Main().GetPeriodicBoundary().GetRule().length[2], 6.0F);
            // Few particles are spheres, many are points: both have the colours.
            for (const int which : {SnapAttribute_cls::kColor, SnapAttribute_cls::kDiffuse}) {
                const ColorCurve_cls& curve = Sequence().GetAttribute(1).GetCurve(which);
                EXPECT_EQ(curve.IsOn(), c.byValue);
                if (!c.byValue) continue;
                EXPECT_EQ(curve.mScalingMin.mValue, 1.0F);
                EXPECT_EQ(curve.mScalingMax.mValue, 60.0F);
            }
        });
        mUser.Press("space");
        EXPECT_TRUE(WaitFor([&] { return Sequence().GetTime(c.snapshots - 1) == c.lastTime; }, kLongMs))
            << c.file;
        mUser.Press("space");
    }
    // One step back is the data before, with their settings.
    UndoOpening();
    EXPECT_TRUE(IsOpen(3));
    OnGui([this] { EXPECT_FALSE(mWindow.Main().GetDataLoader().IsItemExistBody(GrammerBase_cls::kValue1)); });
    UndoOpening();
    EXPECT_TRUE(WaitFor([this] { return Sequence().GetSeqLength() == 0; }));
    OnGui([this] {
        EXPECT_TRUE(mWindow.Main().GetDataLoader().IsDefaultRecord());
        EXPECT_EQ(mWindow.Main().GetPeriodicBoundary().GetRule().type, 0U);
        EXPECT_FALSE(GCUndoList.CanUndo());
    });
}

TEST_F(DataLoaderGuiTest, LayoutIsEditedWithKeysAndMouse) {
    const SampleParticle_cls particle{{1, 2, 3}, {4, 5, 6}, 7, 8, 1, 9};
    const std::string file =
        mFolder.Write("a0000.dat", DefaultSnapshot(1, 3, {particle, particle, particle}));
    ASSERT_TRUE(OpenDialog());
    OnGui([&] { Dialog()->SetFile(file); });
    EXPECT_EQ(Misfit(), "");

    wxListView* body = OnGui([this] { return Find<wxListView>("Body items"); });
    const auto rowAt = [&](int row) {
        return OnGui([&] {
            wxRect rect;
            body->GetItemRect(row, rect);
            return body->ClientToScreen(wxPoint(rect.x + 20, rect.y + rect.height / 2));
        });
    };
    const auto codes = [this] {  // on the GUI thread
        wxString text;
        for (const int code : Dialog()->GetDraft().GetLoader().GetBodyGrammer()) text << code << " ";
        return text;
    };
    mUser.Click(rowAt(5));
    mUser.Press("Delete");
    EXPECT_TRUE(WaitFor([&] { return body->GetItemCount() == 5; }));
    EXPECT_TRUE(Misfit().Contains("records of 40 bytes would fit")) << Misfit();
    // The only items that may be added are dummies and the one that was removed.
    mUser.Press("Insert");
    mUser.Press("End");
    mUser.Press("Return");
    EXPECT_TRUE(WaitFor([&] { return body->GetItemCount() == 6; }));
    EXPECT_TRUE(WaitFor([&] { return codes() == "0 1 5 6 7 8 "; }));
    mUser.Press("alt+Up");
    EXPECT_TRUE(WaitFor([&] { return codes() == "0 1 5 6 8 7 "; }));
    mUser.Drag(rowAt(0), rowAt(2));
    EXPECT_TRUE(WaitFor([&] { return codes() == "1 5 0 6 8 7 "; })) << OnGui(codes);

    // Without positions nothing is opened; the message is closed, then the dialog, and nothing has changed.
    mUser.Click(rowAt(2));
    mUser.Press("Delete");
    mUser.Press("alt+o");
    EXPECT_TRUE(WaitFor([this] { return !Dialog()->IsActive(); }));
    mUser.Press("Escape");
    EXPECT_TRUE(WaitFor([this] { return Dialog()->IsActive(); }));
    mUser.Press("Escape");
    EXPECT_TRUE(WaitFor([this] { return !Dialog(); }));
    OnGui([this] {
        EXPECT_TRUE(mWindow.Main().GetDataLoader().IsDefaultRecord());
        EXPECT_EQ(Sequence().GetSeqLength(), 0);
    });
}

TEST_F(DataLoaderGuiTest, BadFilesAreShownAsWhatTheyAre) {
    struct Case {
        const char* name;
        std::string bytes;
        const char* misfit;  // part of it
    };
    std::string cut = DumpStep(0);
    cut.resize(cut.size() - 4);
    const Case cases[] = {{"empty.0", "", "empty"},
                          {"binary.txt", std::string(5000, '\x01'), "byte"},
                          {"cut.0", cut, "the line ends before"},
                          {"header.0", cut.substr(0, 60), ""}};
    ASSERT_TRUE(OpenDialog());
    for (const Case& c : cases) {
        OnGui([&] { Dialog()->SetFile(mFolder.Write(c.name, c.bytes)); });
        EXPECT_TRUE(Misfit().Contains(c.misfit)) << c.name << Misfit();
        EXPECT_FALSE(Misfit().empty()) << c.name;
    }
    for (const std::string& path : {mFolder.Path().string(), mFolder.File("none")}) {
        OnGui([&] {
            Dialog()->SetFile(path);
            EXPECT_FALSE(dynamic_cast<wxButton*>(Dialog()->FindWindow(wxID_OK))->IsEnabled()) << path;
        });
    }
    mUser.Press("Escape");
    EXPECT_TRUE(WaitFor([this] { return !Dialog(); }));
}

}  // namespace
