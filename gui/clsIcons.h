#pragma once

#include <wx/bmpbndl.h>
#include <wx/colour.h>
#include <wx/string.h>

class wxWindow;

/// The icons of the windows: one family of drawings, the resources ICONS/*.svg, sharp at every scale. They
/// are drawn in one colour, black in the files, which is replaced by the text colour of the window that shows
/// them, so that they fit light and dark themes.
/// Names are those of the files without ending: "play", "open", "layout-4a".
/// Threads: GUI thread only. Failure: an icon that is not there is an empty one; nothing is told, since every
/// control says by its tooltip what it does.
class Icons_cls {
  public:
    /// An icon in the window's text colour; its size is in the window's device independent pixels.
    static wxBitmapBundle Get(const wxString& name, const wxWindow& window, int size = kSize);
    static wxBitmapBundle Get(const wxString& name, const wxColour& colour, int size = kSize);
    /// The same in half the colour's strength, for a control that is switched off.
    static wxBitmapBundle GetFaded(const wxString& name, const wxWindow& window, int size = kSize);

    static constexpr int kSize = 18;
};
