#pragma once

#include <wx/string.h>

#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"

/// Offers every line of a text to the object, as a project is read; returns the lines that it refused.
template <class Object>
wxString ReadAll(Object& object, const wxString& text) {
    LineStream_cls stream(ToBytes(text));
    wxString refused;
    for (wxString line; stream.ReadLine(line);) {
        if (!object.ReadStrLine(stream, line)) refused += line + "\n";
    }
    return refused;
}
