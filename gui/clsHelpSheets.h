#pragma once

#include <wx/string.h>

class Preference_cls;
class wxWindow;

// The sheets of the Help menu. They block until they are closed. Threads: GUI thread.

/// What mouse and keys do, the mouse as the user has set it.
void ShowMouseAndKeys(wxWindow* parent, const Preference_cls& preference);

/// The versions of the program and of what it runs on, to be copied. `openGL` describes the views' OpenGL.
void ShowAbout(wxWindow* parent, const wxString& openGL);
