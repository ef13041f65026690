#pragma once

#include <wx/fileconf.h>
#include <wx/filehistory.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include <memory>
#include <optional>
#include <vector>

class ConfItemList_cls;
class wxTopLevelWindow;
class wxMenu;

/// What belongs to the user and to no project: recent projects, the window's place, defaults of new projects,
/// where unsaved work is kept. Held in a second file in the user's configuration directory, so that the
/// configuration file keeps its four sections. Owned by the main window. Threads: GUI thread. Failure: what
/// cannot be read or written is as if there were nothing.
class UserSettings_cls {
  public:
    /// Nothing is read or written when it is not kept.
    explicit UserSettings_cls(bool kept);
    ~UserSettings_cls();
    UserSettings_cls(const UserSettings_cls&) = delete;
    UserSettings_cls& operator=(const UserSettings_cls&) = delete;

    /// The folder of the file; empty when nothing is kept.
    const wxString& GetFolder() const { return mFolder; }

    void AddRecent(const wxString& path);
    void RemoveRecent(const wxString& path);
    std::vector<wxString> GetRecent() const;
    /// A menu that always lists the recent projects; its items have the identifiers from wxID_FILE1 on.
    void ShowRecentIn(wxMenu& menu);

    /// The settings used last, as the defaults of new projects. What is no value of an item is passed over.
    void SaveDefaults(const ConfItemList_cls& items);
    void ReadDefaults(ConfItemList_cls& items) const;

    void SaveWindow(const wxTopLevelWindow& window, int sash, int pages);
    struct Window {
        wxRect place;  ///< the corner of the frame, the size of what it holds; empty while always maximised
        bool maximized = false;
        int sash = 0;
        int pages = 0;
    };
    std::optional<Window> GetWindow() const;

  private:
    void Flush();

    wxString mFolder;
    std::unique_ptr<wxFileConfig> mConfig;
    wxFileHistory mRecent;
};
