#pragma once

#include <wx/string.h>
#include <wx/timer.h>

#include <functional>
#include <optional>

/// Keeps unsaved work beside the user's settings: at an interval when something has changed, and before the
/// program is ended by force. What another run left is offered at the next start.
/// A run's file bears its process's number and start, so that two windows do not take each other's work.
/// Owned by the main window. Threads: GUI thread; from another one nothing is written.
class Recovery_cls : public wxTimer {
  public:
    struct Host {
        std::function<bool()> isModified;
        /// Something to tell two states apart by.
        std::function<size_t()> getState;
        std::function<bool(const wxString& path)> save;
        /// Minutes from one writing to the next; 0: only before the program is ended by force.
        std::function<int()> getInterval;
    };
    static constexpr int kPeriodMs = 60000;

    /// An empty folder: nothing is kept.
    Recovery_cls(const wxString& folder, Host host);
    ~Recovery_cls() override;

    /// The work of a run that ended without saving, if any. It stays until Discard().
    std::optional<wxString> FindLeft() const;
    static void Discard(const wxString& path);
    /// What was left is open now: from here on it is this run's work.
    void TakeOver(const wxString& left);
    /// Writes now if there is unsaved work that has not been written.
    void Save();
    /// There is nothing unsaved any more.
    void Clear();

    void Notify() override;

  private:
    const wxString mFolder;
    const wxString mPath;
    const Host mHost;
    std::optional<size_t> mSavedState;
    int mMinutes = 0;  ///< since the last writing
};
