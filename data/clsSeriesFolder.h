#pragma once

#include <wx/string.h>

#include <optional>
#include <string>

#include "data/clsSeriesNames.h"

/// Folders in the user's cache through which files with other names are seen as a series that is numbered by
/// one: links to the members of a series, or copies of the time steps of one file (StepSplitter_cls). A
/// folder is named after its file and lies under that file's own path: "<cache>/varnholt3/series/home/me/run/
/// dump.0/dump_00000". So whoever sees the name knows where the data are, and a project finds them again
/// after the cache was emptied. Threads: GUI thread. Failure: said in words, and the folder is as it was
/// before.
class SeriesFolder_cls {
  public:
    enum class Content { Links, Steps };

    /// For the file as it was chosen, the first of its series.
    SeriesFolder_cls(const wxString& file, Content content);

    /// The place of all series: below the user's cache directory.
    static wxString GetRoot();
    const wxString& GetPath() const { return mPath; }
    /// The file it was made for, with its whole path.
    const wxString& GetFile() const { return mFile; }
    /// Member `number` of the series; the first one is what is opened.
    wxString GetMember(size_t number) const;
    wxString GetMemberName(size_t number) const;

    /// Links to the members, at most kMostMembers. Existing links are taken over, so that a series that has
    /// grown is opened as fast as one that has not. Empty, or why it failed.
    wxString MakeLinks(const SeriesNames_cls& names) const;

    /// The folder of this user that a path names: one below the root, or one that is not there below the root
    /// of somebody else, from whom a project may come. None for any other path.
    static std::optional<SeriesFolder_cls> Of(const wxString& path);
    bool IsOfSteps() const { return mContent == Content::Steps; }
    /// The file that a path below a root was made for; any other path as it is.
    static wxString GetSource(const wxString& path);
    /// Removes folders whose files are gone for a month, and what killed runs left.
    static void RemoveStale();

    /// More than a series may have: opening one that is too long then says so.
    static constexpr size_t kMostMembers = 10001;
    /// In the name of a folder that is being filled.
    static constexpr const char* kPartTag = ".part-";

  private:
    Content mContent;
    wxString mFile;  ///< absolute
    wxString mPath;
    std::string mMemberPrefix;
    std::string mMemberSuffix;
};
