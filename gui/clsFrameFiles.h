#pragma once

#include <wx/string.h>

#include <functional>
#include <utility>
#include <vector>

#include "gui/clsFrameContext.h"
#include "gui/clsRecovery.h"
#include "gui/clsUserSettings.h"

class wxFrame;

/// The window's document: which project is open, whether it has unsaved changes, and the ways in which
/// projects and data come and go. Asks before changes are lost. Owned by the main window. Threads: GUI
/// thread.
class FrameFiles_cls {
  public:
    struct Views {
        /// Other data or another project have been opened or closed.
        std::function<void()> replaced;
        /// What is wrong with a project that was opened.
        std::function<void(const std::vector<wxString>& lines)> tellFaults;
    };

    FrameFiles_cls(wxFrame& frame, FrameContext_cls& context, UserSettings_cls& user, Views views);
    ~FrameFiles_cls();
    FrameFiles_cls(const FrameFiles_cls&) = delete;
    FrameFiles_cls& operator=(const FrameFiles_cls&) = delete;

    /// A project by its ending, else the first file of a series.
    void Open(const wxString& path);
    void OpenProject(const wxString& path);
    void OpenData(const wxString& path);
    void AskForProject();
    void AskForData();
    void CloseData();

    /// False when it could not be saved, or the user did not choose a name.
    bool Save();
    bool SaveAs();
    /// True when nothing unsaved is left or the user lets it go.
    bool MayLoseChanges();
    bool IsModified() const;
    /// Offers what another run left unsaved; true when that is open now. Put off, it is offered again.
    bool OfferRecovery();
    /// A change was made: the recovery has something to do.
    void NoteChange() { ++mChanges; }
    /// True once after data were opened that no project and no change has set up.
    bool TakeWantsLook() { return std::exchange(mWantsLook, false); }
    /// How particles are drawn now was not chosen by the user: other data may get another look.
    void NoteLook() { mLook = GetLook(); }
    /// The window is about to close: unsaved work is kept for the next start, or given up.
    void Finish(bool keep);

    wxString GetTitle() const;

  private:
    bool SaveTo(const wxString& path);
    wxString GetLook() const;
    /// What goes before and after opening data; `open` says whether it did.
    void TakeData(const std::function<bool()>& open);
    void Adopt(const wxString& project);

    wxFrame& mFrame;
    FrameContext_cls& mContext;
    UserSettings_cls& mUser;
    const Views mViews;
    Recovery_cls mRecovery;
    wxString mProject;  ///< empty: no name yet
    size_t mChanges = 0;
    bool mWantsLook = false;
    wxString mLook;
    bool mRecovered = false;  ///< what is open came from another run and is not saved anywhere
};
