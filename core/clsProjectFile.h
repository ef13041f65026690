#pragma once

#include <wx/string.h>

#include <atomic>
#include <functional>
#include <set>
#include <vector>

#include "seam/clsLineStream.h"

class Main_cls;

/// Set while a project is read: the view panels do not draw.
extern std::atomic<bool> GbGLLockProjectLoading;

/// Writes the whole state as a project, reads it back, and takes single settings by hand.
/// The sections stand in one list, in the order in which they are written; sections of objects that do not
/// exist yet are missing in it, and their lines in a file are passed over. Threads: GUI thread. Failure: a
/// file that cannot be written leaves the old one whole; of a file that is no project nothing is taken.
class ProjectFile_cls {
  public:
    static constexpr const char* kConfigName = "Varnholt3Configure.txt";

    explicit ProjectFile_cls(Main_cls& main);

    /// Without `full` only the sections of the configuration file. 1 when the file was written, else 0.
    int SaveProjectFile(const wxString& path, bool full);
    /// Why the last save failed, with the file's name.
    const wxString& GetError() const { return mError; }

    /// Reads every line that some section knows; the others are counted. False when the file cannot be
    /// opened, which the user is told unless it is the configuration file.
    bool ReadProjectFile(const wxString& path);
    int GetUnknownLines() const { return mUnknownLines; }

    /// Takes one KEY=VALUE line of a project. False when no setting has the key.
    bool ApplySetting(const wxString& line);

  private:
    struct Section {
        int number;          ///< place in the file
        bool configuration;  ///< also written to the configuration file
        std::function<wxString()> serialize;
        std::function<bool(LineStream_cls&, const wxString&)> read;
    };

    wxString Serialize(bool full) const;
    bool Offer(LineStream_cls& stream, const wxString& line);

    Main_cls& mMain;
    std::vector<Section> mSections;
    std::set<wxString> mKeys;  ///< every key that a full project holds; filled when first needed
    wxString mError;
    int mUnknownLines = 0;
};
