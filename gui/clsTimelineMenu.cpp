#include "gui/clsTimelineMenu.h"

#include <wx/menu.h>

#include <algorithm>

#include "gui/clsKeyFrameGUI.h"
#include "timeline/clsUndoManager.h"

void TimelineMenu_cls::Add(wxMenu& menu, const wxString& label, std::function<void()> action, bool enabled) {
    wxMenuItem* item = menu.Append(wxID_ANY, label);
    item->Enable(enabled);
    menu.Bind(
        wxEVT_MENU, [action = std::move(action)](wxCommandEvent&) { action(); }, item->GetId());
}

void TimelineMenu_cls::AddCheck(wxMenu& menu, const wxString& label, bool checked,
                                std::function<void()> action) {
    wxMenuItem* item = menu.AppendCheckItem(wxID_ANY, label);
    item->Check(checked);
    menu.Bind(
        wxEVT_MENU, [action = std::move(action)](wxCommandEvent&) { action(); }, item->GetId());
}

void TimelineMenu_cls::AddTypes(wxMenu& menu) {
    const bool any = mModel.mKeys.HasSelection();
    for (unsigned int type = 0; type < KeyFrame_cls::kTypeCount; ++type) {
        AddCheck(menu, KeyFrame_cls::GetTypeName(type),
                 mModel.mKeys.GetSelectedType() == static_cast<int>(type),
                 [this, type] { mModel.mKeys.SetType(type); });
        menu.GetMenuItems().back()->Enable(any);
    }
}

void TimelineMenu_cls::AddRowEntries(wxMenu& menu, const TimelineTree_cls::Row& row) {
    const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(row);
    const bool animated = std::any_of(lane.begin(), lane.end(),
                                      [](const auto* parameter) { return parameter->IsTimeDependent(); });
    AddCheck(menu, "Animated", animated,
             [this, lane, animated] { mModel.mKeys.SetTimeDependent(lane, !animated); });
    ParamGroup_cls& group = *row.group;
    AddCheck(menu, "Shy", group.IsShy(), [&group] { group.SetShy(!group.IsShy()); });
    menu.AppendSeparator();
    AddCheck(menu, "Only Groups with Keys", mModel.mTree.IsOnlyKeyed(),
             [this] { mModel.mTree.SetOnlyKeyed(!mModel.mTree.IsOnlyKeyed()); });
    AddCheck(menu, "Hide Shy Groups", mModel.mTree.IsHideShy(),
             [this] { mModel.mTree.SetHideShy(!mModel.mTree.IsHideShy()); });
}

void TimelineMenu_cls::ShowForKeys(int number, double t) {
    const TimelineTree_cls::Row* found = mModel.mTree.GetRow(number);
    if (!found) return;
    const TimelineTree_cls::Row row = *found;
    TimelineKeys_cls& keys = mModel.mKeys;
    const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(row);
    const std::optional<double> key =
        TimelineKeys_cls::FindKey(lane, t, mModel.ToTimeRange(mWindow.FromDIP(6)));
    const bool any = keys.HasSelection();
    const double here = Parameters_cls::msCurrentDoubleIndex;

    wxMenu menu;
    Add(menu, wxString::Format("Insert Key at Frame %d", mModel.mTimeCtrl.GetFrame()) + "\tIns",
        [&] { keys.InsertKey(lane, here); });
    Add(
        menu, "Edit Key...\tEnter",
        [&] { KeyFrameGUI_cls(&mWindow, mModel.mTimeCtrl, row.GetName(), lane, *key).ShowModal(); },
        key.has_value());
    menu.AppendSeparator();
    Add(
        menu, "Cut\tCtrl+X", [&] { keys.Cut(); }, any);
    Add(
        menu, "Copy\tCtrl+C", [&] { keys.Copy(); }, any);
    Add(menu, wxString::Format("Paste at Frame %d\tCtrl+V", mModel.mTimeCtrl.GetFrame()),
        [&] { keys.Paste(&row, here); });
    Add(
        menu, "Delete\tDel", [&] { keys.Delete(); }, any);
    Add(menu, "Select All Keys\tCtrl+A", [&] { keys.SelectAll(); });
    menu.AppendSeparator();
    AddTypes(menu);
    menu.AppendSeparator();
    AddRowEntries(menu, row);
    mWindow.PopupMenu(&menu);
}

void TimelineMenu_cls::ShowForRow(int number) {
    const TimelineTree_cls::Row* row = mModel.mTree.GetRow(number);
    if (!row) return;
    const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(*row);
    wxMenu menu;
    Add(menu, wxString::Format("Insert Key at Frame %d", mModel.mTimeCtrl.GetFrame()) + "\tIns",
        [&] { mModel.mKeys.InsertKey(lane, Parameters_cls::msCurrentDoubleIndex); });
    AddRowEntries(menu, *row);
    mWindow.PopupMenu(&menu);
}

void TimelineMenu_cls::ShowForFrame(int frame) {
    TimeCtrl_cls& timeCtrl = mModel.mTimeCtrl;
    const FrameRange work = timeCtrl.GetSettings().GetWorkArea();
    wxMenu menu;
    Add(
        menu, wxString::Format("Work Area Begins at Frame %d", frame),
        [&] { timeCtrl.SetWorkAreaMinCommand(frame); }, frame <= work.last);
    Add(
        menu, wxString::Format("Work Area Ends at Frame %d", frame),
        [&] { timeCtrl.SetWorkAreaMaxCommand(frame); }, frame >= work.first);
    Add(menu, "Work Area Is the Whole Scene", [&] {
        const UndoBlock_cls block("Work Area");
        timeCtrl.SetWorkAreaMinCommand(0);
        timeCtrl.SetWorkAreaMaxCommand(timeCtrl.GetMaxFrame());
    });
    Add(menu, "Active Area Is the Whole Scene", [&] { timeCtrl.ExpandAACommand(); });
    menu.AppendSeparator();
    AddCheck(menu, "Time Remap", timeCtrl.GetSettings().IsTimeRemap(),
             [&] { timeCtrl.SetTimeRemapCommand(!timeCtrl.GetSettings().IsTimeRemap()); });
    menu.AppendSeparator();
    Add(menu, "Show All Frames", [&] { mModel.mScale.ShowAll(); });
    Add(menu, "Show the Work Area", [&] { mModel.mScale.ShowRange(work.first, work.last); });
    mWindow.PopupMenu(&menu);
}
