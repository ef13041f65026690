#pragma once

class wxWindow;
struct FrameContext_cls;

// The makers of the settings pages and dialogs, with what each of them needs of the main window's context.
// Threads: GUI thread.

/// A page "Attrib 0" to "Attrib 3" of the notebook.
wxWindow* MakeAttributePage(wxWindow* parent, FrameContext_cls& context, int index);
wxWindow* MakeDrawOptionPage(wxWindow* parent, FrameContext_cls& context);

void OpenColorCurveEditor(wxWindow* parent, FrameContext_cls& context);
void OpenViewSettings(wxWindow* parent, FrameContext_cls& context);
void OpenLightSources(wxWindow* parent, FrameContext_cls& context);
void OpenPeriodicBoundary(wxWindow* parent, FrameContext_cls& context);
void OpenPreferences(wxWindow* parent, FrameContext_cls& context);

/// Lets a curve's button open the editor, and the editor see the values of the frame on screen.
void ConnectColorCurves(wxWindow* frame, FrameContext_cls& context);
