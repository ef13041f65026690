#include "gui/clsFrameMenu.h"

#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

namespace {

/// Keys of a number field or a list stay there.
bool WantsKeys(const wxWindow* window) {
    return dynamic_cast<const wxTextEntry*>(window) || dynamic_cast<const wxSpinCtrl*>(window) ||
           dynamic_cast<const wxSpinCtrlDouble*>(window) || dynamic_cast<const wxChoice*>(window) ||
           dynamic_cast<const wxSlider*>(window);
}

}  // namespace

FrameMenu_cls::FrameMenu_cls(wxFrame& frame) : mFrame(frame), mBar(new wxMenuBar) {
    mFrame.Bind(wxEVT_CHAR_HOOK, &FrameMenu_cls::OnKey, this);
    wxEvtHandler::AddFilter(this);
}

FrameMenu_cls::~FrameMenu_cls() {
    wxEvtHandler::RemoveFilter(this);
}

int FrameMenu_cls::FilterEvent(wxEvent& event) {
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_MENU_OPEN) mOpen.insert(static_cast<wxMenuEvent&>(event).GetMenu());
    if (type == wxEVT_MENU_CLOSE) mOpen.erase(static_cast<wxMenuEvent&>(event).GetMenu());
    // A click that reaches a window finds all menus closed, whatever was told of them.
    if (type == wxEVT_LEFT_DOWN) mOpen.clear();
    const bool isKey = type == wxEVT_CHAR_HOOK || type == wxEVT_KEY_DOWN || type == wxEVT_CHAR;
    return isKey && !mOpen.empty() ? Event_Ignore : Event_Skip;
}

wxMenu& FrameMenu_cls::Add(const wxString& title, const std::vector<Entry>& entries) {
    auto* menu = new wxMenu;
    for (const Entry& entry : entries) {
        if (!entry.action) {
            menu->AppendSeparator();
            continue;
        }
        const int id = wxWindow::NewControlId();
        menu->Append(id, entry.label, entry.help, entry.isChecked ? wxITEM_CHECK : wxITEM_NORMAL);
        mFrame.Bind(
            wxEVT_MENU, [action = entry.action](wxCommandEvent&) { action(); }, id);
        mFrame.Bind(
            wxEVT_UPDATE_UI,
            [entry](wxUpdateUIEvent& event) {
                if (entry.isEnabled) event.Enable(entry.isEnabled());
                if (entry.isChecked) event.Check(entry.isChecked());
                if (entry.getLabel) event.SetText(entry.getLabel());
            },
            id);
        if (entry.key != 0) mKeys[entry.key] = entry;
    }
    mBar->Append(menu, title);
    return *menu;
}

void FrameMenu_cls::Finish() {
    mFrame.SetMenuBar(mBar);
}

void FrameMenu_cls::OnKey(wxKeyEvent& event) {
    event.Skip();
    if (event.HasAnyModifiers()) return;
    const wxWindow* focus = wxWindow::FindFocus();
    // Dialogs have keys of their own.
    if (focus && wxGetTopLevelParent(const_cast<wxWindow*>(focus)) != &mFrame) return;
    if (WantsKeys(focus)) return;
    const auto found = mKeys.find(event.GetKeyCode());
    if (found == mKeys.end()) return;
    const Entry& entry = found->second;
    if (entry.isEnabled && !entry.isEnabled()) return;
    event.Skip(false);
    entry.action();
}
