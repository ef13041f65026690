#pragma once

#include <wx/string.h>

#include "data/clsDataLoader.h"
#include "data/clsPDataSequence.h"

/// The application: owns the settings and the data, with or without a window.
/// Threads: GUI thread.
class Main_cls {
  public:
    Main_cls();
    ~Main_cls();
    Main_cls(const Main_cls&) = delete;
    Main_cls& operator=(const Main_cls&) = delete;

    DataLoader_cls& GetDataLoader() { return mDataLoader; }
    PDataSequence_cls& GetSequence() { return mSequence; }

    /// Names the data and counts their files.
    void OpenDataFile(const wxString& path);

    /// Reads one line of a project given by hand. False when no setting has its key.
    bool ApplySetting(const wxString& line);

    /// Reads the settings of a project. False, with the user told, when it cannot be opened.
    bool ReadProjectFile(const wxString& path);
    /// Reads the per-user configuration; none there is no fault.
    void ReadConfigFile(const wxString& path);
    /// Writes the whole state. The old file stays whole whatever happens. Empty, or what went wrong.
    wxString SaveProjectFile(const wxString& path);

  private:
    void ReadLines(const std::string& text);

    DataLoader_cls mDataLoader;
    PDataSequence_cls mSequence{0};
};
