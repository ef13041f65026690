#pragma once

#include <wx/string.h>

#include <string>
#include <vector>

/// The files of a series as simulations name them: a number anywhere in the name, rising by any step, with or
/// without zeros before it ("dump.0", "dump.1000"; "run.00128"; "snap.100.txt"). Found by listing the folder.
/// Failure: a folder that cannot be read, or a name without relatives, gives the file alone.
struct SeriesNames_cls {
    /// The chosen file and those after it, in the order of their numbers.
    static SeriesNames_cls Find(const wxString& path);

    /// FileSequence_cls finds the same files by itself.
    bool IsOrdinary() const;
    /// "dump.0 to dump.400, 5 files".
    wxString Describe() const;

    wxString mFolder;                 ///< with its "/" at the end
    std::vector<std::string> mNames;  ///< the chosen one first
    std::string mPrefix;              ///< of the name, before the number; the whole name without number
    std::string mSuffix;              ///< behind it
};
