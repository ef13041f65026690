#include "gui/clsWindowMessage.h"

#include <wx/msgdlg.h>
#include <wx/thread.h>

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
            wxMessageBox(text, title, wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION | wxCENTRE, &mParent);
        return answer == wxYES ? Answer::Yes : Answer::No;
    }
    wxMessageBox(text, title, wxOK | wxICON_WARNING | wxCENTRE, &mParent);
    return Answer::Ok;
}
