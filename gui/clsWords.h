#pragma once

#include <wx/arrstr.h>
#include <wx/translation.h>

#include <initializer_list>

/// The texts of a choice, in the order of the numbers that they stand for.
inline wxArrayString Words(std::initializer_list<wxString> words) {
    wxArrayString array;
    for (const wxString& word : words) array.Add(word);
    return array;
}

/// The same from a table, which holds them untranslated.
template <class Table>
wxArrayString Words(const Table& table) {
    wxArrayString array;
    for (const auto& word : table) array.Add(wxGetTranslation(word));
    return array;
}
