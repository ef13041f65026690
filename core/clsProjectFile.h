#pragma once

#include <wx/string.h>

#include <atomic>
#include <functional>
#include <vector>

#include "seam/clsLineStream.h"

class ConfItem_cls;
class ConfItemList_cls;
class Main_cls;

/// Set while a project is read: the view panels do not draw.
extern std::atomic<bool> GbGLLockProjectLoading;

/// Writes the whole state as a project, reads it back, and takes single settings by hand.
/// Two lists say it all: the sections in the order of writing, and the readers in the order in which every
/// line is offered to all of them. Objects that do not exist yet are named in both at their place; their
/// lines in a file are passed over. Owned by the application core. Threads: GUI thread. Failure: a file that
/// cannot be written leaves the old one whole; of a file that is no project nothing is taken.
class ProjectFile_cls {
  public:
    static constexpr const char* kConfigName = "Varnholt3Configure.txt";

    explicit ProjectFile_cls(Main_cls& main);

    /// Without `full` only the sections of the configuration file. 1 when the file was written, else 0.
    int SaveProjectFile(const wxString& path, bool full);
    /// Writes the whole state for safety and remembers nothing of it: it stays unsaved. False on failure.
    bool WriteCopy(const wxString& path);
    /// Why the last save failed, with the file's name.
    const wxString& GetError() const { return mError; }

    /// Closes the data and reads a project.
    bool OpenProject(const wxString& path);
    /// Reads every line that some reader knows; the others are counted. What the file does not mention keeps
    /// its value. False when the file cannot be opened, which the user is told unless it is the configuration
    /// file.
    bool ReadProjectFile(const wxString& path);
    /// What is wrong with the project that was read last, one line each: it is cut off, its data are gone.
    std::vector<wxString> GetFaults() const;
    int GetUnknownLines() const { return mUnknownLines; }
    int GetKnownLines() const { return mKnownLines; }

    /// Takes one KEY=VALUE line by hand. Stricter than a file: the key has to stand at the beginning, and a
    /// number has to be one. Empty, or what is wrong.
    wxString ApplySetting(const wxString& line);

  private:
    struct Section {
        int number;  ///< place in the file
        std::function<wxString()> serialize;
    };
    using Lists = std::vector<const ConfItemList_cls*>;
    struct Reader {
        std::function<bool(LineStream_cls&, const wxString&)> read;
        Lists lists;  ///< the settings of one line each
    };

    void SetUpSections();
    void SetUpReaders();
    wxString Serialize(bool full) const;
    bool Offer(LineStream_cls& stream, const wxString& line);
    /// The reader and the item with this key; null when there is none.
    static const ConfItem_cls* Find(const std::vector<Reader>& readers, const wxString& key,
                                    const Reader** reader);
    bool IsSessionLine(const wxString& line) const;

    Main_cls& mMain;
    std::vector<Section> mSections;
    std::vector<Reader> mReaders;
    /// The panels' own settings: written, taken by hand, but not from a file.
    std::vector<Reader> mSessionReaders;
    wxString mError;
    wxString mCutFile;  ///< the file that was read last, when it ends within a line
    int mUnknownLines = 0;
    int mKnownLines = 0;
};
