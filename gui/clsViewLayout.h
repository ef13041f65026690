#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <vector>

/// The arrangements of view panels and where each panel lies. Plain numbers: the values are those of
/// PanelShared_cls::Layout, and what is none of them is one panel.
namespace ViewLayout {

/// The names that the user chooses from, in the order of the values.
const std::vector<wxString>& Names();
/// Icons of the same.
const std::vector<wxString>& Icons();
/// How many panels are shown.
int Count(unsigned int layout);
/// The panels' places in an area, with `gap` pixels between them. In an area too small for all, none is
/// smaller than one pixel.
std::vector<wxRect> Places(unsigned int layout, const wxSize& area, int gap);

}  // namespace ViewLayout
