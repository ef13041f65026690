#pragma once

#include <wx/string.h>

#include <functional>

class ParamGroup_cls;

/// What parameters and groups reach above themselves: clipboard and dialogs.
/// One is made by the core, given at construction and shared; any function, and the host itself, may be
/// missing. Threads: called on the GUI thread only.
struct ParamHost_cls {
    std::function<void(const wxString&)> putClipboard;
    /// The clipboard's text, empty when it holds none.
    std::function<wxString()> getClipboard;
    /// Opens the key dialog of a group ("Frame", "Interpolate Type", "Ease Factor") at a time.
    std::function<void(ParamGroup_cls&, double t)> createKeyDialog;
};
