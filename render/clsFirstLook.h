#pragma once

#include <wx/string.h>

#include <vector>

class SnapData_cls;

/// The look that data get which nobody has set up yet, so that the first picture of unknown data shows
/// something: few particles as lit balls that touch here and there, many as points whose light adds up, both
/// coloured by type. As settings of sequence 0, KEY=VALUE each, so that they can be seen and changed like any
/// others. `height` is that of the picture, in pixels; one of another size needs no other look.
/// What is among the `given` settings, KEY=VALUE too, is set up and left out.
std::vector<wxString> SuggestLook(const SnapData_cls& state, int height, const std::vector<wxString>& given);
