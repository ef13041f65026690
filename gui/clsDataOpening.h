#pragma once

#include "data/clsLoadDraft.h"

class wxWindow;
struct FrameContext_cls;

/// A project whose series has to be made again shows its progress over this window.
void ConnectSeriesProgress(wxWindow* frame);

/// The entry to opening data in the window. Shows the loader dialog, with a file in it that was dropped or
/// named or with the one opened last, and opens what the user decides as one step of the undo list. True when
/// data were opened. Threads: GUI thread.
bool OpenDataByDialog(wxWindow* parent, FrameContext_cls& context, const wxString& path = {});

/// For a file that was dropped or named: opened at once when the present settings fit it and its names are
/// numbered by one, else shown in the dialog.
bool OpenDataFile(wxWindow* parent, FrameContext_cls& context, const wxString& path);

/// Opens what a draft says without asking: its series is made where it needs one, its settings become those
/// of the program, and the colours follow the first snapshot. Long work shows its progress and can be
/// cancelled; cancelled before the data are opened it changes nothing. False when they were not opened; why
/// was then told.
bool OpenDraft(wxWindow* parent, FrameContext_cls& context, const LoadDraft_cls& draft);
