#pragma once

#include <wx/string.h>

/// By its name's ending a project is told from data.
namespace ProjectName {

constexpr const char* kEnding = ".vhp";

inline bool IsProject(const wxString& path) {
    return path.Lower().EndsWith(kEnding);
}

}  // namespace ProjectName
