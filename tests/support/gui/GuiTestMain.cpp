#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/log.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "output/clsImageFile.h"
#include "seam/clsResourcePath.h"
#include "seam/clsTextCoding.h"
#include "support/gui/Desktop.h"

namespace {

/// What the toolkit complains about is a fault of whoever called it; a user would see it in the terminal.
class FailingLog_cls final : public wxLogStderr {
    void DoLogTextAtLevel(wxLogLevel, const wxString& text) override { ADD_FAILURE() << ToBytes(text); }
};

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Nothing is shown while tests are only named.
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();

    const Desktop_cls desktop;
    if (!desktop.GetError().empty()) {
        std::fprintf(stderr, "%s\n", desktop.GetError().c_str());
        return 1;
    }
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    InstallFileNameConversion();
    // Shaders, textures and icons lie beside the program, not beside its tests.
    ResourcePath_cls::SetProgramFolder(
        FromBytes(std::filesystem::path(VARNHOLT_PROGRAM).parent_path().string()));
    wxApp::SetInstance(new wxApp);
    int noArguments = 0;
    if (!wxEntryStart(noArguments, static_cast<char**>(nullptr)) || !wxTheApp->CallOnInit()) return 1;
    wxLog::SetActiveTarget(new FailingLog_cls);
    ImageFile_cls::InitHandlers();
    wxTheApp->SetExitOnFrameDelete(false);
    int status = 1;
    std::thread tests([&status] {
        status = RUN_ALL_TESTS();
        wxTheApp->CallAfter([] { wxTheApp->ExitMainLoop(); });
    });
    wxTheApp->OnRun();
    tests.join();
    wxEntryCleanup();
    return status;
}
