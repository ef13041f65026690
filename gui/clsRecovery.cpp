#include "gui/clsRecovery.h"

#include <wx/dir.h>
#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include <csignal>

#include "seam/clsDiagnostics.h"
#include "seam/clsProjectName.h"

namespace {

constexpr const char* kPrefix = "unsaved-";

bool IsAlive(long process) {
    return process > 0 && (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

}  // namespace

Recovery_cls::Recovery_cls(const wxString& folder, Host host)
    : mFolder(folder),
      mPath(folder.empty()
                ? wxString()
                : wxString::Format("%s/%s%lu%s", folder, kPrefix, wxGetProcessId(), ProjectName::kEnding)),
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
        long process = 0;
        if (!name.Mid(wxString(kPrefix).length()).BeforeFirst('.').ToLong(&process)) continue;
        const wxString path = mFolder + "/" + name;
        if (path == mPath || !IsAlive(process)) return path;
    }
    return std::nullopt;
}

void Recovery_cls::Discard(const wxString& path) {
    const wxLogNull silent;
    wxRemoveFile(path);
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
