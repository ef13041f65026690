#include <wx/menu.h>

#include "data/clsPDataSeqCtrl.h"
#include "gui/clsDemo.h"
#include "gui/clsFrameMain.h"
#include "gui/clsFrameParts.h"
#include "gui/clsFrameStatus.h"
#include "gui/clsHelpSheets.h"
#include "gui/clsSavePictures.h"
#include "gui/clsTopHalfPanel.h"
#include "gui/clsViewLayout.h"
#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

namespace {

using Entries = std::vector<FrameMenu_cls::Entry>;

const FrameMenu_cls::Entry kSeparator{};

}  // namespace

Entries FrameMain_cls::FileEntries() {
    return {{.label = "&Open Project...\tCtrl+O",
             .help = "Open a project, with its data and all settings",
             .action = [this] { mFiles.AskForProject(); }},
            {.label = "&Save Project\tCtrl+S",
             .help = "Save everything but the particles",
             .action = [this] { mFiles.Save(); }},
            {.label = "Save Project &As...\tCtrl+Shift+S",
             .help = "Save under another name",
             .action = [this] { mFiles.SaveAs(); }},
            kSeparator,
            {.label = "&Quit\tCtrl+Q", .help = "End the program", .action = [this] { Close(); }}};
}

Entries FrameMain_cls::EditEntries() {
    const auto named = [](const wxString& word, const wxString& step, const wxString& keys) {
        return step.empty() ? word + "\t" + keys : word + " " + step + "\t" + keys;
    };
    return {{.label = "&Undo\tCtrl+Z",
             .help = "Take the last change back",
             .action = [this] { Undo(); },
             .isEnabled = [] { return GCUndoList.CanUndo(); },
             .getLabel = [named] { return named("&Undo", GCUndoList.GetUndoName(), "Ctrl+Z"); }},
            {.label = "&Redo\tCtrl+Shift+Z",
             .help = "Make the change again",
             .action = [this] { Redo(); },
             .isEnabled = [] { return GCUndoList.CanRedo(); },
             .getLabel = [named] { return named("&Redo", GCUndoList.GetRedoName(), "Ctrl+Shift+Z"); }}};
}

Entries FrameMain_cls::ViewEntries() {
    Entries entries;
    const auto& names = ViewLayout::Names();
    for (unsigned int i = 0; i < names.size(); ++i) {
        entries.push_back({.label = wxString::Format("%s   (%u)", names[i], i + 1),
                           .help = "Show the views in this layout",
                           .action = [this, i] { mViews->SetLayoutCommand(i); },
                           .isChecked = [this, i] { return mViews->GetLayout() == i; },
                           .key = static_cast<int>('1' + i)});
    }
    entries.push_back(kSeparator);
    entries.push_back({.label = "&Fit to Data   (F)",
                       .help = "Show all particles in the active view",
                       .action = [this] { mViews->GetActiveCamera().FitToData(); },
                       .key = 'F'});
    entries.push_back({.label = "&Key Camera   (K)",
                       .help = "Key the camera as the active view shows it at this frame",
                       .action = [this] { mViews->GetActiveCamera().Key(); },
                       .key = 'K'});
    return entries;
}

Entries FrameMain_cls::DataEntries() {
    const auto hasData = [this] { return mContext.seqCtrl.GetActive().GetSeqLength() > 0; };
    return {{.label = "&Open Data...\tCtrl+D",
             .help = "Open a series by its first file",
             .action = [this] { mFiles.AskForData(); }},
            {.label = "&Close Data",
             .help = "Forget the series; the settings stay",
             .action = [this] { mFiles.CloseData(); },
             .isEnabled = hasData},
            kSeparator,
            {.label = "S&top Reading and Drawing   (Esc)",
             .help = "Give up what is being read or drawn for this frame; the next step goes on",
             .action = [this] { StopWaiting(); },
             .isEnabled = [this] { return mPlayback.IsSlow() || mWatch.GetPercentage(); },
             .key = WXK_ESCAPE},
            {.label = "Remove Cached &Snapshot",
             .help = "Release this frame's snapshot from memory; it is read again when it is needed",
             .action = [this] { RemoveCache(false); },
             .isEnabled = hasData},
            {.label = "Remove &All Cache",
             .help = "Release all snapshots from memory",
             .action = [this] { RemoveCache(true); },
             .isEnabled = hasData}};
}

Entries FrameMain_cls::AnimationEntries() {
    TimeCtrl_cls& time = mContext.timeCtrl;
    return {{.label = "&Play or Stop   (Space)",
             .help = "Play the work area from this frame",
             .action = [this] { TogglePlay(); },
             .key = WXK_SPACE},
            {.label = "Play &Backward",
             .help = "Play from this frame to the beginning",
             .action = [this] { mPlayback.Start(-1); }},
            {.label = "&Loop",
             .help = "Play round and round",
             .action = [&time] { time.SetRepeatCommand(!time.GetSettings().IsRepeat()); },
             .isChecked = [&time] { return time.GetSettings().IsRepeat(); }},
            kSeparator,
            {.label = "&Next Frame   (Right)",
             .help = "One step forward",
             .action = [&time] { time.MoveFrameCommand(1); },
             .key = WXK_RIGHT},
            {.label = "P&revious Frame   (Left)",
             .help = "One step back",
             .action = [&time] { time.MoveFrameCommand(-1); },
             .key = WXK_LEFT},
            {.label = "Ten Steps Forward   (Page Down)",
             .help = "Ten steps forward",
             .action = [&time] { time.MoveFrameCommandLarge(1); },
             .key = WXK_PAGEDOWN},
            {.label = "Ten Steps Back   (Page Up)",
             .help = "Ten steps back",
             .action = [&time] { time.MoveFrameCommandLarge(-1); },
             .key = WXK_PAGEUP},
            {.label = "&First Frame   (Home)",
             .help = "The first frame of the work area",
             .action = [this, &time] { GoToFrame(time.GetSettings().GetWorkArea().first); },
             .key = WXK_HOME},
            {.label = "L&ast Frame   (End)",
             .help = "The last frame of the work area",
             .action = [this, &time] { GoToFrame(time.GetSettings().GetWorkArea().last); },
             .key = WXK_END},
            {.label = "Next &Key   (Down)",
             .help = "The next frame with a key",
             .action = [&time] { time.MoveFrameCommandSnip(1); },
             .key = WXK_DOWN},
            {.label = "Pre&vious Key   (Up)",
             .help = "The previous frame with a key",
             .action = [&time] { time.MoveFrameCommandSnip(-1); },
             .key = WXK_UP}};
}

Entries FrameMain_cls::RenderEntries() {
    return {{.label = "Save &View as Picture...\tCtrl+P",
             .help = "Write what the active view shows into a picture",
             .action = [this] { SaveViewAsPicture(*this, *mViews); }},
            {.label = "Save Pictures or &Film...\tCtrl+R",
             .help = "Write frames of the scene into pictures or a film, in any size",
             .action = [this] {
                 OpenSavePictures(*this, mContext, *mViews,
                                  [this](const wxString& words) { mStatus->ShowSaving(words); });
             }}};
}

void FrameMain_cls::MakeMenus() {
    using Menu = FrameDialog_cls::Menu;
    const auto add = [this](const wxString& title, Menu which, Entries entries) -> wxMenu& {
        bool first = true;
        for (const FrameDialog_cls& dialog : FrameDialogs()) {
            if (dialog.menu != which) continue;
            if (std::exchange(first, false) && !entries.empty()) entries.push_back(kSeparator);
            entries.push_back({.label = dialog.label, .help = dialog.help, .action = [this, &dialog] {
                                   dialog.open(this, mContext);
                               }});
        }
        return mMenu.Add(title, entries);
    };
    wxMenu& file = add("&File", Menu::File, FileEntries());
    auto* recent = new wxMenu;
    file.Insert(1, wxID_ANY, "Open &Recent", recent);
    mUser.ShowRecentIn(*recent);
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent& event) {
            const auto paths = mUser.GetRecent();
            const auto index = static_cast<size_t>(event.GetId() - wxID_FILE1);
            if (index < paths.size()) mFiles.Open(paths[index]);
        },
        wxID_FILE1, wxID_FILE9);
    add("&Edit", Menu::Edit, EditEntries());
    add("&View", Menu::View, ViewEntries());
    add("&Data", Menu::Data, DataEntries());
    add("&Animation", Menu::Animation, AnimationEntries());
    add("&Render", Menu::Render, RenderEntries());
    mMenu.Add("&Help",
              {{.label = "&Demo",
                .help = "Open a small simulation: two galaxies pass each other",
                .action =
                    [this] {
                        if (const wxString demo = MakeDemo(this); !demo.empty()) mFiles.Open(demo);
                    }},
               {.label = "&Mouse and Keys\tF1",
                .help = "What mouse and keys do",
                .action = [this] { ShowMouseAndKeys(this, mContext.preference); }},
               {.label = "&About", .help = "Which version this is, and what it runs on", .action = [this] {
                    ShowAbout(this, mViews->GetOpenGL());
                }}});
    mMenu.Finish();
}
