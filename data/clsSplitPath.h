#pragma once

#include <wx/string.h>

/// A path cut at its last "/" and its last ".".
/// The extension keeps its dot and is empty when the last dot lies before the last "/"; the directory keeps
/// its last "/"; stem = directory + name = the path without the extension.
struct SplitPath_cls {
    explicit SplitPath_cls(const wxString& path);

    wxString mDirectory;
    wxString mName;
    wxString mExtension;
    wxString mStem;
};
