#include "gui/clsWindowMessage.h"

#include <wx/msgdlg.h>
#include <wx/thread.h>

namespace {

/// Over the dialog that the user is in, which then gets the keyboard back; else over the main window.
wxWindow* Below(wxWindow& mainWindow) {
    wxWindow* focus = wxWindow::FindFocus();
    wxWindow* dialog = focus ? wxGetTopLevelParent(focus) : nullptr;
    return dialog ? dialog : &mainWindow;
}

}  // namespace

WindowMessage_cls::WindowMessage_cls(wxWindow& parent) : mParent(parent) {
    GpCUserMessage.store(this, std::memory_order_release);
}

WindowMessage_cls::~WindowMessage_cls() {
    GpCUserMessage.store(nullptr, std::memory_order_release);
}

UserMessage_cls::Answer WindowMessage_cls::Show(const wxString& title, const wxString& text,
                                                Buttons buttons) {
    if (!wxThread::IsMain()) return StderrMessage_cls().Show(title, text, buttons);
    if (buttons == Buttons::YesNo) {
        const int answer =
            wxMessageBox(text, title, wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION | wxCENTRE, Below(mParent));
        return answer == wxYES ? Answer::Yes : Answer::No;
    }
    wxMessageBox(text, title, wxOK | wxICON_WARNING | wxCENTRE, Below(mParent));
    return Answer::Ok;
}
