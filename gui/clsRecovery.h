#pragma once

#include <wx/string.h>
#include <wx/timer.h>

#include <functional>
#include <optional>

/// Keeps unsaved work beside the user's settings: every so many minutes when something has changed, and
/// before the program is ended by force. What another run left is offered once at the next start. A run's
/// file bears its process number, so that two windows do not take each other's work. Owned by the main
/// window. Threads: GUI thread; from another one nothing is written.
class Recovery_cls : public wxTimer {
  public:
    struct Host {
        std::function<bool()> isModified;
        /// Something to tell two states apart by.
        std::function<size_t()> getState;
        std::function<bool(const wxString& path)> save;
        std::function<int()> getMinutes;  ///< from one writing to the next; 0: only before an end by force
    };
    static constexpr int kMinuteMs = 60000;

    /// An empty folder: nothing is kept.
    Recovery_cls(const wxString& folder, Host host);
    ~Recovery_cls() override;

    /// The work of a run that ended without saving, if any. It stays until Discard().
    std::optional<wxString> FindLeft() const;
    static void Discard(const wxString& path);
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
    int mMinutes = 0;
};
