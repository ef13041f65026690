#pragma once

#include <wx/string.h>

class wxWindow;

/// The project of the demo, two galaxies that pass each other, in the user's cache directory. What is not
/// there yet is made, with progress and a way to cancel. Empty when it was cancelled, or failed, which is
/// told. Threads: GUI thread.
wxString MakeDemo(wxWindow* parent);
