#pragma once

#include <wx/string.h>

#include <optional>
#include <vector>

class DataLoader_cls;
class PeriodicBoundary_cls;

/// The file to open for a first data file that the command line names. What the loader dialog proposes is
/// done here without asking, and said on standard error: a file that the present layout does not fit is read
/// as the kind that it shows to be, unless a setting of the command line describes the layout; a series that
/// is not numbered by one, and a file with many time steps, are opened through a folder in the user's cache
/// directory; null, after a message, when that cannot be made or the file is of a kind that cannot be read.
/// Call it before the command line's settings are applied: those have the last word.
std::optional<wxString> PrepareNamedData(const wxString& file, const std::vector<wxString>& settings,
                                         DataLoader_cls& loader, PeriodicBoundary_cls& periodic);
