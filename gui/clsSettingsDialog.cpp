#include "gui/clsSettingsDialog.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "gui/clsOneDialog.h"
#include "gui/clsScreenRoom.h"
#include "gui/clsSettingsView.h"
#include "gui/clsSpacing.h"
#include "timeline/clsUndoManager.h"

SettingsDialog_cls& SettingsDialog_cls::Open(wxWindow& parent, const wxString& title, const Make& make) {
    auto& dialog = OneDialog::Show<SettingsDialog_cls>(
        parent, title, [&] { return new SettingsDialog_cls(parent, title, make); });
    if (auto* view = dynamic_cast<SettingsView_cls*>(dialog.mPage))
        view->ShowSettings(SettingsView_cls::kAll);
    return dialog;
}

SettingsDialog_cls::SettingsDialog_cls(wxWindow& parent, const wxString& title, const Make& make)
    : wxDialog(&parent, wxID_ANY, title, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mPage(make(this)) {
    auto* close = new wxButton(this, wxID_CLOSE);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mPage, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(Spacing::kDialog)));
    sizer->Add(close, wxSizerFlags().Right().Border(wxALL, FromDIP(Spacing::kDialog)));
    SetEscapeId(wxID_CLOSE);
    Bind(wxEVT_CHAR_HOOK, &SettingsDialog_cls::OnKey, this);
    SetSizerAndFit(sizer);
    // On a small screen the page scrolls.
    SetMinSize(wxSize());
    SetSize(ScreenRoom::Limit(parent, GetSize()));
    // At the right, over the pages of settings: what is changed is seen in the views.
    const wxRect screen = wxDisplay(&parent).GetClientArea();
    const wxRect above = parent.GetScreenRect();
    Move(std::clamp(above.GetRight() - GetSize().x, screen.x, screen.GetRight()),
         std::clamp(above.y + (above.height - GetSize().y) / 2, screen.y, screen.GetBottom()));
}

void SettingsDialog_cls::OnKey(wxKeyEvent& event) {
    // The keys of the main window's menus do not reach a dialog, and what is changed here can be undone here.
    const auto* text = dynamic_cast<wxTextCtrl*>(FindFocus());
    const bool typing = text && text->IsModified();
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers();
    const bool undo = key == 'Z' && modifiers == wxMOD_CONTROL;
    const bool redo = key == 'Z' && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT);
    if (typing || (!undo && !redo)) {
        event.Skip();
    } else if (undo) {
        GCUndoList.UndoCurrent();
    } else {
        GCUndoList.ExecCurrent();
    }
}
