#include "render/clsBillboardFile.h"

#include <wx/log.h>

#include "seam/clsInputFile.h"
#include "seam/clsResourcePath.h"

namespace {

/// Files beyond this are not billboards, and decoding them could take all memory.
constexpr uint64_t kLargestFile = uint64_t{64} << 20;

}  // namespace

wxImage ReadBillboard(const wxString& file, int largestSide, wxString* words) {
    const wxString path = ResourcePath_cls::Find(file);
    wxString why;
    const auto input = InputFile_cls::Open(path, &why);
    wxImage image;
    if (input && input->GetSize() <= kLargestFile) {
        const wxLogNull silence;  // told below, in one message
        image.LoadFile(path);
    }
    if (input && !image.IsOk()) {
        why = "it is no picture that can be read";
    } else if (input && (image.GetWidth() > largestSide || image.GetHeight() > largestSide)) {
        why = "it is larger than OpenGL's textures";
    } else if (input && !image.HasAlpha()) {
        why = "it has no alpha channel";
    }
    if (why.empty()) return image;
    *words = wxString::Format("The billboard texture %s is not used: %s.", path, why);
    return {};
}
