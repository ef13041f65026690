#include "gui/clsFaultBar.h"

void FaultBar_cls::Tell(const std::vector<wxString>& lines) {
    if (lines.empty()) return;
    wxString text = lines.front();
    if (lines.size() > 1) text += wxString::Format("  (and %zu more)", lines.size() - 1);
    ShowMessage(text, wxICON_WARNING);
}
