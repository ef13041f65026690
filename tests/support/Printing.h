#pragma once

#include <wx/string.h>

#include <ostream>

/// Lets a failed comparison show a wxString as text.
inline void PrintTo(const wxString& text, std::ostream* stream) {
    *stream << '"' << text.utf8_str().data() << '"';
}
