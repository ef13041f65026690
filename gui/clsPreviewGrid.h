#pragma once

#include <wx/panel.h>

struct RecordPreview_cls;
class wxGrid;
class wxStaticText;

/// The first records of a file as the layout on screen decodes them: what the header says, a table with a row
/// for each record, the file's size beside what the layout takes, and in red the first thing that does not
/// fit. Owned by its parent window. Threads: GUI thread.
class PreviewGrid_cls : public wxPanel {
  public:
    explicit PreviewGrid_cls(wxWindow* parent);

    /// A red that can be read on the window's background, light or dark.
    static wxColour Red();

    /// `warning` is shown where everything fits.
    void Show(const RecordPreview_cls& preview, const wxString& warning);

  private:
    void ShowCells(const RecordPreview_cls& preview);

    wxStaticText* mHeader;
    wxStaticText* mSize;
    wxStaticText* mMisfit;
    wxGrid* mGrid;
};
