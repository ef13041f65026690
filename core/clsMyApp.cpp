#include "core/clsMyApp.h"

#include <wx/init.h>
#include <wx/log.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <new>

#include "core/clsBatch.h"
#include "output/clsImageFile.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

wxString ProgramFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? wxString(".") : FromBytes(program.parent_path().string());
}

/// The status of a job whose results could be written, else a failure.
int FinishOutput(int status) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    PrintError("standard output cannot be written");
    return status == Batch_cls::kDone ? Batch_cls::kFailed : status;
}

}  // namespace

MyApp::MyApp() {
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
            PrintError("one of --info, --render, --export and --save is needed (see varnholt3 --help)");
            return Batch_cls::kWrongUsage;
        default:
            return FinishOutput(RunHeadless(*line));
    }
}

int MyApp::RunHeadless(const CommandLine_cls& line) {
    mToolkit = std::make_unique<wxInitializer>();
    wxLog::SetActiveTarget(new wxLogStderr);
    ImageFile_cls::InitHandlers();
    try {
        return Batch_cls(line, ProgramFolder()).Run();
    } catch (const std::bad_alloc&) {
        PrintError(line.mFile + ": not enough memory");
        return Batch_cls::kFailed;
    }
}
