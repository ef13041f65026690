#include "seam/clsUserMessage.h"

#include <cstdio>
#include <cstdlib>

#include "seam/clsDiagnostics.h"
#include "seam/clsTextCoding.h"

std::atomic<UserMessage_cls*> GpCUserMessage{nullptr};

namespace {

UserMessage_cls::Answer ShowWithFrontEnd(const wxString& title, const wxString& text,
                                         UserMessage_cls::Buttons buttons) {
    if (UserMessage_cls* frontEnd = GpCUserMessage.load(std::memory_order_acquire)) {
        return frontEnd->Show(title, text, buttons);
    }
    return StderrMessage_cls().Show(title, text, buttons);
}

}  // namespace

void UserMessage_cls::Tell(const wxString& title, const wxString& text) {
    ShowWithFrontEnd(title, text, Buttons::Ok);
}

bool UserMessage_cls::AskYesNo(const wxString& title, const wxString& text) {
    return ShowWithFrontEnd(title, text, Buttons::YesNo) == Answer::Yes;
}

UserMessage_cls::Answer StderrMessage_cls::Show(const wxString& title, const wxString& text,
                                                Buttons buttons) {
    wxString line = title + ": " + text;
    line.Replace("\n", " ");
    PrintError(line);
    return buttons == Buttons::Ok ? Answer::Ok : Answer::No;
}

void PrintError(const wxString& text) {
    std::fprintf(stderr, "varnholt3: %s\n", ToBytes(text).c_str());
    std::fflush(stderr);
}

void MsgBoxExit(const wxString& text, const wxString& title) {
    DoLastWork();
    UserMessage_cls::Tell(title, text);
    std::exit(1);
}
