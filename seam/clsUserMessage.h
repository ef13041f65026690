#pragma once

#include <wx/string.h>

#include <atomic>
#include <vector>

/// Telling the user something and asking for a decision.
/// With a window this is a message box; headless it is one line on standard error and the safe answer.
/// Threads: Tell() and AskYesNo() on the GUI thread, PrintError() and MsgBoxExit() on any.
class UserMessage_cls {
  public:
    enum class Answer { Ok, Yes, No };
    enum class Buttons { Ok, YesNo };

    virtual ~UserMessage_cls() = default;
    /// Ok for Buttons::Ok; for Buttons::YesNo what the user chose, headless always No.
    virtual Answer Show(const wxString& title, const wxString& text, Buttons buttons) = 0;

    static void Tell(const wxString& title, const wxString& text);
    static bool AskYesNo(const wxString& title, const wxString& text);
};

/// The front end's implementation; null means standard error. Owned by the front end.
extern std::atomic<UserMessage_cls*> GpCUserMessage;

/// Headless: one line "varnholt3: title: text" on standard error, line feeds turned into blanks.
class StderrMessage_cls : public UserMessage_cls {
  public:
    Answer Show(const wxString& title, const wxString& text, Buttons buttons) override;
};

/// Prints one line on standard error with the program's name before it.
void PrintError(const wxString& text);

/// Shows a message the program cannot go on from and ends it with exit status 1.
[[noreturn]] void MsgBoxExit(const wxString& text, const wxString& title);
