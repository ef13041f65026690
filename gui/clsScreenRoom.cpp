#include "gui/clsScreenRoom.h"

#include <wx/display.h>

namespace {

const wxSize kDesktop(60, 60);

}  // namespace

wxSize ScreenRoom::Limit(const wxWindow& window, const wxSize& size) {
    wxSize limited = size;
    limited.DecTo(wxDisplay(&window).GetClientArea().GetSize() - kDesktop);
    return limited;
}

bool DialogAdapter_cls::DoLayoutAdaptation(wxDialog* dialog) {
    if (!wxStandardDialogLayoutAdapter::DoLayoutAdaptation(dialog)) return false;
    dialog->SetMinSize(wxSize());
    dialog->SetSize(ScreenRoom::Limit(*dialog, dialog->GetSize()));
    return true;
}
