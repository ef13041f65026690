#include "gui/clsDemo.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/progdlg.h>
#include <wx/stdpaths.h>
#include <wx/translation.h>

#include "gui/clsRenderProcess.h"
#include "seam/clsClock.h"
#include "seam/clsResourcePath.h"
#include "seam/clsUserMessage.h"

namespace {

/// Enough for a picture, few enough for any machine.
constexpr const char* kParticles = "20000";
constexpr const char* kLastFile = "/galaxies0100.dat";
constexpr const char* kProject = "/galaxies.vhp";
constexpr int kPeriodMs = 20;

/// False when the user does not want to wait.
bool WaitFor(RenderProcess_cls& child, wxWindow* parent) {
    wxProgressDialog dialog(_("Demo"), _("Two galaxies pass each other: computing 101 snapshots"), 100,
                            parent, wxPD_APP_MODAL | wxPD_CAN_ABORT);
    bool cancelled = false;
    const auto isDone = [&child] {
        child.Poll();
        return !child.IsRunning();
    };
    PollUntil(isDone, kPeriodMs, [&](int) {
        if (dialog.Pulse() || cancelled) return;
        cancelled = true;
        child.Cancel();
    });
    return !cancelled;
}

}  // namespace

wxString MakeDemo(wxWindow* parent) {
    const wxString folder = wxStandardPaths::Get().GetUserDir(wxStandardPaths::Dir_Cache) + "/varnholt3/demo";
    const wxString project = folder + kProject;
    // The project comes last: with it, the data are whole.
    if (wxFileExists(project) && wxFileExists(folder + kLastFile)) return project;

    RenderProcess_cls child;
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    if (child.Start(ResourcePath_cls::Find("examples/makegalaxies"), {"--particles", kParticles, folder})) {
        if (!WaitFor(child, parent)) return {};
        if (child.IsDone() && wxCopyFile(ResourcePath_cls::Find("examples/galaxies.vhp"), project))
            return project;
    }
    UserMessage_cls::Tell(_("Warning"), folder + ": the demo could not be made.\n" + child.GetMessages());
    return {};
}
