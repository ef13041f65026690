#include "gui/clsSavePictures.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <algorithm>
#include <array>

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
    wxFileDialog dialog(&parent, "Save View as Picture", {}, "view.png",
                        "PNG picture (*.png)|*.png|JPEG picture (*.jpg)|*.jpg|TIFF picture (*.tif)|*.tif",
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) return;
    wxString path = dialog.GetPath();
    static constexpr std::array<const char*, 3> kEndings = {".png", ".jpg", ".tif"};
    if (!ImageFile_cls::IsKnownFormat(path))
        path += kEndings.at(static_cast<size_t>(std::clamp(dialog.GetFilterIndex(), 0, 2)));
    const wxString error = ImageFile_cls::Write(path, *picture);
    if (!error.empty()) UserMessage_cls::Tell("Error!", error);
}

void OpenSavePictures(wxWindow& parent, FrameContext_cls& context, TopHalfPanel_cls& views) {
    const auto save = [&context](const wxString& path) { return context.saveRecovery(path); };
    const auto panel = [&context, &views]() -> const PanelSettings_cls& {
        return *context.panelSettings[views.GetActive()];
    };
    ImgSequenceGUI_cls::Open(
        parent, {.timeCtrl = context.timeCtrl,
                 .program = wxStandardPaths::Get().GetExecutablePath(),
                 .saveCopy = save,
                 .getPanel = panel,
                 .getViewSize = [&views] { return views.GetCanvas(views.GetActive()).PixelSize(); }});
}
