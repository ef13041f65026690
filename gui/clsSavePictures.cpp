#include "gui/clsSavePictures.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>

#include "gui/clsFrameContext.h"
#include "gui/clsImgSequenceGUI.h"
#include "gui/clsMainGLCanvas.h"
#include "gui/clsTopHalfPanel.h"
#include "output/clsImageFile.h"
#include "seam/clsUserMessage.h"

void SaveViewAsPicture(wxWindow& parent, TopHalfPanel_cls& views) {
    // First the picture: the dialog lets playing go on.
    const std::optional<Picture_cls> picture = views.GetCanvas(views.GetActive()).ReadPicture();
    if (!picture) return;
    wxFileDialog dialog(&parent, "Save View as Picture", {}, "view.png", ImageFile_cls::kFilters,
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) return;
    const wxString path = ImageFile_cls::WithEnding(dialog.GetPath(), dialog.GetFilterIndex());
    const wxString error = ImageFile_cls::Write(path, *picture);
    if (!error.empty()) UserMessage_cls::Tell("Error!", error);
}

void OpenSavePictures(wxWindow& parent, FrameContext_cls& context, TopHalfPanel_cls& views,
                      const std::function<void(const wxString& words)>& tell) {
    const auto save = [&context](const wxString& path) { return context.saveRecovery(path); };
    const auto panel = [&context, &views]() -> const PanelSettings_cls& {
        return *context.panelSettings[views.GetActive()];
    };
    ImgSequenceGUI_cls::Open(
        parent, {.timeCtrl = context.timeCtrl,
                 .program = wxStandardPaths::Get().GetExecutablePath(),
                 .saveCopy = save,
                 .getPanel = panel,
                 .getViewSize = [&views] { return views.GetCanvas(views.GetActive()).PixelSize(); },
                 .tell = tell});
}
