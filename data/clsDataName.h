#pragma once

#include <wx/string.h>

/// Names of data in a project, which may be moved together with its data: relative names count from the
/// project's folder. Plain functions; a folder is empty for the current one, or ends in "/". Threads: any.
namespace DataName {

/// Where a name leads: from the folder, or, for projects whose names count from the folder that the program
/// was started in, from there when only that first file exists.
wxString Resolve(const wxString& folder, const wxString& name);

/// The name to write into a project in this folder for a path that counts from the current one: relative for
/// what lies in the project's folder or below, else absolute.
wxString ForProject(const wxString& folder, const wxString& path);

}  // namespace DataName
