#include "core/clsMyApp.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/init.h>
#include <wx/log.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "core/clsBatch.h"
#include "core/clsWindowSession.h"
#include "gui/clsFrameMain.h"
#include "gui/clsScreenRoom.h"
#include "gui/clsViewGL.h"
#include "output/clsImageFile.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsResourcePath.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

/// The status of a job whose results could be written, else a failure.
int FinishOutput(int status) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    PrintError("standard output cannot be written");
    return status == Batch_cls::kDone ? Batch_cls::kFailed : status;
}

/// The toolkit's application object: opens the window, which ends the event loop when it closes. It opens
/// from inside the loop: what is told and asked meanwhile needs a window that is on the screen.
class WindowApp_cls : public wxApp {
  public:
    explicit WindowApp_cls(const CommandLine_cls& line) : mLine(line) {}

    bool OnInit() override {
        ImageFile_cls::InitHandlers();
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) SetSignalHandler(signal, OnSignal);
        const std::unique_ptr<wxDialogLayoutAdapter> toolkits(
            wxDialog::SetLayoutAdapter(new DialogAdapter_cls));
        wxDialog::EnableLayoutAdaptation(true);
        CallAfter([this] {
            mSession = std::make_unique<WindowSession_cls>(mLine, ResourcePath_cls::GetRunningFolder());
            mOpened = mSession->Open();
            if (!mOpened) ExitMainLoop();
        });
        return true;
    }
    /// What the toolkit finds wrong with itself is nothing that a user could answer.
    void OnAssertFailure(const wxChar* file, int line, const wxChar*, const wxChar* condition,
                         const wxChar* message) override {
        PrintError(wxString::Format("%s:%d: %s: %s", file, line, condition, message ? message : wxS("")));
    }
    /// Mostly there is no memory left. What was under way is in no known state: the program ends, the unsaved
    /// work is kept.
    bool OnExceptionInMainLoop() override {
        mOpened = false;
        DoLastWork();
        wxString why;
        try {
            throw;
        } catch (const std::bad_alloc&) {
            why = "not enough memory";
        } catch (const std::exception& error) {
            why = error.what();
        }
        UserMessage_cls::Tell(
            "Error!", "Varnholt 3 cannot go on: " + why + ". Unsaved work is offered at the next start.");
        return false;
    }
    int OnRun() override {
        const int status = wxApp::OnRun();
        return mOpened ? status : Batch_cls::kFailed;
    }
    int OnExit() override {
        mSession.reset();
        return wxApp::OnExit();
    }

  private:
    /// The toolkit calls it from its loop, where anything may be done.
    static void OnSignal(int) {
        const auto& session = static_cast<WindowApp_cls*>(wxTheApp)->mSession;
        if (session && session->GetFrame()) {
            session->GetFrame()->End();
        } else {
            wxTheApp->ExitMainLoop();
        }
    }

    const CommandLine_cls& mLine;
    std::unique_ptr<WindowSession_cls> mSession;
    bool mOpened = true;
};

}  // namespace

MyApp::MyApp() {
    // Handed down ignored, it would hide how the programs that we start end.
    std::signal(SIGCHLD, SIG_DFL);
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    InstallFileNameConversion();
}

MyApp::~MyApp() = default;

int MyApp::Run(int argc, char** argv) {
    wxString error;
    const auto line = CommandLine_cls::Parse(argc, argv, &error);
    if (!line) {
        PrintError(error + " (see varnholt3 --help)");
        return Batch_cls::kWrongUsage;
    }
    switch (line->mAction) {
        case CommandLine_cls::Action::Help:
            std::fputs(CommandLine_cls::HelpText(), stdout);
            return FinishOutput(Batch_cls::kDone);
        case CommandLine_cls::Action::Version:
            std::puts("varnholt3 " VARNHOLT_VERSION);
            return FinishOutput(Batch_cls::kDone);
        case CommandLine_cls::Action::Window:
            return RunWindow(*line);
        default:
            return FinishOutput(RunHeadless(*line));
    }
}

int MyApp::RunHeadless(const CommandLine_cls& line) {
    mToolkit = std::make_unique<wxInitializer>();
    wxLog::SetActiveTarget(new wxLogStderr);
    ImageFile_cls::InitHandlers();
    try {
        return Batch_cls(line, ResourcePath_cls::GetRunningFolder()).Run();
    } catch (const std::bad_alloc&) {
        PrintError(line.mFile + ": not enough memory");
        return Batch_cls::kFailed;
    }
}

int MyApp::RunWindow(const CommandLine_cls& line) {
    wxApp::SetInstance(new WindowApp_cls(line));
    // The toolkit's OpenGL windows are X11's only; under Wayland that is there too.
    setenv("GDK_BACKEND", "x11", 1);
    // The command line is ours: the toolkit sees none of it.
    int argc = 0;
    char** argv = nullptr;
    if (!wxEntryStart(argc, argv)) {
        PrintError("no display to open a window on (varnholt3 --help lists what can be done without one)");
        return Batch_cls::kFailed;
    }
    if (!ViewGL_cls::IsDisplaySupported()) {
        PrintError("this display has no OpenGL (varnholt3 --help lists what can be done without one)");
        wxEntryCleanup();
        return Batch_cls::kFailed;
    }
    if (!wxTheApp->CallOnInit()) {
        wxEntryCleanup();
        return Batch_cls::kFailed;
    }
    const int status = wxTheApp->OnRun();
    wxTheApp->OnExit();
    wxEntryCleanup();
    return FinishOutput(status);
}
