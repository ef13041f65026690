#include "seam/clsThreadCheck.h"

#include "seam/clsUserMessage.h"

void ExpectThread(wxThreadError result) {
    if (result != wxTHREAD_NO_ERROR) MsgBoxExit("Can't create thread", "Error!");
}
