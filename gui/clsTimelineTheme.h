#pragma once

#include <wx/brush.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/graphics.h>
#include <wx/pen.h>

class wxWindow;

/// Colours, fonts and sizes of the timeline, from the desktop's theme and the window's font, so that it looks
/// right in light and dark themes and at every scale. Made anew for every painting: the theme may change.
struct TimelineTheme_cls {
    explicit TimelineTheme_cls(const wxWindow& window);

    wxColour background;
    wxColour outside;  ///< before and behind the scene
    wxColour panel;    ///< names and ruler
    wxColour current;  ///< the current row
    wxColour line;
    wxColour grid;
    wxColour text;
    wxColour faintText;
    wxColour key;
    wxColour selectedKey;
    wxColour workArea;
    wxColour activeArea;
    wxColour cursor;
    wxFont font;
    wxFont smallFont;

    int rowHeight;
    int barHeight;    ///< of an area's bar in the ruler
    int rulerHeight;  ///< two bars and the frame numbers
    int keySize;      ///< half the width of a key
    int indent;

    /// Colour of component i of a group, as its curve is drawn.
    wxColour GetComponentColour(int i) const;
    /// Adds a key's outline, by its type, to a path.
    void AddKey(wxGraphicsPath& path, double x, double y, unsigned int type) const;

  private:
    bool mDark;
};
