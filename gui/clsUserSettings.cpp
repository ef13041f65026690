#include "gui/clsUserSettings.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/menu.h>
#include <wx/toplevel.h>

#include "CONFITEM/clsConfItemList.h"
#include "seam/clsUserFolder.h"

namespace {

constexpr const char* kFile = "window.conf";
constexpr const char* kRecent = "/Recent";
constexpr const char* kDefaults = "/Defaults/";

}  // namespace

UserSettings_cls::UserSettings_cls(bool kept) {
    if (!kept) return;
    const wxLogNull silent;
    mFolder = UserFolder_cls::GetConfig();
    wxFileName::Mkdir(mFolder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    mConfig =
        std::make_unique<wxFileConfig>(wxEmptyString, wxEmptyString, mFolder + "/" + kFile, wxEmptyString,
                                       wxCONFIG_USE_LOCAL_FILE | wxCONFIG_USE_NO_ESCAPE_CHARACTERS);
    mConfig->SetPath(kRecent);
    mRecent.Load(*mConfig);
    mConfig->SetPath("/");
}

UserSettings_cls::~UserSettings_cls() = default;

void UserSettings_cls::Flush() {
    if (!mConfig) return;
    const wxLogNull silent;
    mConfig->SetPath(kRecent);
    mRecent.Save(*mConfig);
    mConfig->SetPath("/");
    mConfig->Flush();
}

void UserSettings_cls::AddRecent(const wxString& path) {
    wxFileName name(path);
    name.MakeAbsolute();
    mRecent.AddFileToHistory(name.GetFullPath());
    Flush();
}

void UserSettings_cls::RemoveRecent(const wxString& path) {
    for (size_t i = 0; i < mRecent.GetCount(); ++i) {
        if (mRecent.GetHistoryFile(i) != path) continue;
        mRecent.RemoveFileFromHistory(i);
        break;
    }
    Flush();
}

std::vector<wxString> UserSettings_cls::GetRecent() const {
    std::vector<wxString> recent;
    for (size_t i = 0; i < mRecent.GetCount(); ++i) recent.push_back(mRecent.GetHistoryFile(i));
    return recent;
}

void UserSettings_cls::ShowRecentIn(wxMenu& menu) {
    mRecent.UseMenu(&menu);
    mRecent.AddFilesToMenu(&menu);
}

void UserSettings_cls::SaveDefaults(const ConfItemList_cls& items) {
    if (!mConfig) return;
    for (const ConfItem_cls* item : items.GetItems())
        mConfig->Write(kDefaults + item->GetKey().BeforeLast('='),
                       item->Serialize().Mid(item->GetKey().length()).BeforeLast('\n'));
    Flush();
}

void UserSettings_cls::ReadDefaults(ConfItemList_cls& items) const {
    for (ConfItem_cls* item : items.GetItems()) {
        wxString text;
        const wxString name = kDefaults + item->GetKey().BeforeLast('=');
        if (mConfig && mConfig->Read(name, &text) && item->Accepts(text))
            item->ReadStrLine(item->GetKey() + text);
    }
}

void UserSettings_cls::SaveWindow(const wxTopLevelWindow& window, int sash, int pages) {
    if (!mConfig) return;
    const bool maximized = window.IsMaximized();
    mConfig->Write("Window/Maximized", maximized);
    mConfig->Write("Window/Sash", sash);
    mConfig->Write("Window/Pages", pages);
    if (!maximized && !window.IsIconized()) {
        // The frame around it is the window manager's, and is not known yet when the window opens again.
        const wxRect place(window.GetPosition(), window.GetClientSize());
        mConfig->Write("Window/X", place.x);
        mConfig->Write("Window/Y", place.y);
        mConfig->Write("Window/Width", place.width);
        mConfig->Write("Window/Height", place.height);
    }
    Flush();
}

std::optional<UserSettings_cls::Window> UserSettings_cls::GetWindow() const {
    Window window;
    if (!mConfig || !mConfig->Read("Window/Sash", &window.sash)) return std::nullopt;
    mConfig->Read("Window/Width", &window.place.width);
    mConfig->Read("Window/Height", &window.place.height);
    mConfig->Read("Window/X", &window.place.x);
    mConfig->Read("Window/Y", &window.place.y);
    mConfig->Read("Window/Maximized", &window.maximized);
    mConfig->Read("Window/Pages", &window.pages);
    return window;
}
