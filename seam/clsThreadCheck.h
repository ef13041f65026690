#pragma once

#include <wx/thread.h>

/// Takes what wxThread::Create() and wxThread::Run() return. Work without its thread would never end, so a
/// thread that cannot be had ends the program with the message "Can't create thread".
void ExpectThread(wxThreadError result);
