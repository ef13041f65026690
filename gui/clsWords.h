#pragma once

#include <wx/arrstr.h>

#include <initializer_list>

/// The texts of a choice, in the order of the numbers that they stand for.
inline wxArrayString Words(std::initializer_list<wxString> words) {
    wxArrayString array;
    for (const wxString& word : words) array.Add(word);
    return array;
}
