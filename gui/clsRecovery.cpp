#include "gui/clsRecovery.h"

#include <wx/dir.h>
#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include <fstream>
#include <sstream>

#include "seam/clsDiagnostics.h"
#include "seam/clsProjectName.h"

namespace {

constexpr const char* kPrefix = "unsaved-";

/// Process number and start: numbers are used again, in a container even for every run. Empty for a process
/// that is not.
wxString NameOf(unsigned long process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    // The program's name, in brackets, may hold anything. The start is the 20th field behind it.
    if (!std::getline(file, line)) return {};
    std::istringstream fields(line.substr(std::min(line.rfind(')'), line.size() - 1) + 1));
    std::string start;
    for (int field = 0; field < 20; ++field) fields >> start;
    return std::to_string(process) + "-" + start;
}

}  // namespace

Recovery_cls::Recovery_cls(const wxString& folder, Host host)
    : mFolder(folder),
      mPath(folder.empty() ? wxString()
                           : folder + "/" + kPrefix + NameOf(wxGetProcessId()) + ProjectName::kEnding),
      mHost(std::move(host)) {
    if (mFolder.empty()) return;
    SetLastWork([this] {
        if (wxThread::IsMain()) Save();
    });
    Start(kPeriodMs);
}

Recovery_cls::~Recovery_cls() {
    SetLastWork({});
}

std::optional<wxString> Recovery_cls::FindLeft() const {
    const wxLogNull silent;
    wxDir folder;
    if (mFolder.empty() || !folder.Open(mFolder)) return std::nullopt;
    wxString name;
    for (bool more = folder.GetFirst(&name, wxString(kPrefix) + "*" + ProjectName::kEnding, wxDIR_FILES);
         more; more = folder.GetNext(&name)) {
        const wxString run = name.Mid(wxString(kPrefix).length()).BeforeFirst('.');
        unsigned long process = 0;
        if (!run.BeforeFirst('-').ToULong(&process)) continue;
        const wxString path = mFolder + "/" + name;
        if (NameOf(process) != run || (path == mPath && !mSavedState)) return path;
    }
    return std::nullopt;
}

void Recovery_cls::Discard(const wxString& path) {
    const wxLogNull silent;
    wxRemoveFile(path);
}

void Recovery_cls::TakeOver(const wxString& left) {
    Save();
    if (left != mPath) Discard(left);
}

void Recovery_cls::Save() {
    if (mPath.empty() || !mHost.isModified()) return;
    const size_t state = mHost.getState();
    if (mSavedState == state) return;
    if (mHost.save(mPath)) mSavedState = state;
}

void Recovery_cls::Notify() {
    const int interval = mHost.getInterval();
    if (interval <= 0 || ++mMinutes < interval) return;
    mMinutes = 0;
    Save();
}

void Recovery_cls::Clear() {
    if (!mSavedState) return;
    mSavedState.reset();
    Discard(mPath);
}
