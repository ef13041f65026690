#pragma once

#include <wx/image.h>
#include <wx/string.h>

/// The picture of a billboard's file, found among the program's own where need be. It has an alpha channel,
/// and no side is longer than this; else it is not Ok, and the words say, for the user, why.
/// Threads: any.
wxImage ReadBillboard(const wxString& file, int largestSide, wxString* words);
