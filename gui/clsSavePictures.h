#pragma once

#include <wx/string.h>

#include <functional>

class TopHalfPanel_cls;
class wxWindow;
struct FrameContext_cls;

// What the Render menu offers to save pictures of the views. Threads: GUI thread.

/// Asks for a name and writes what the active view shows, pixel by pixel.
void SaveViewAsPicture(wxWindow& parent, TopHalfPanel_cls& views);
/// Opens the dialog that saves pictures or a film with the active view's settings. `tell` hears how far it
/// is.
void OpenSavePictures(wxWindow& parent, FrameContext_cls& context, TopHalfPanel_cls& views,
                      const std::function<void(const wxString& words)>& tell);
