#include "output/clsImageFile.h"

#include <wx/image.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cstring>

#include "data/clsSplitPath.h"
#include "seam/clsOutputFile.h"

namespace {

wxBitmapType FormatOf(const wxString& path) {
    const wxString extension = SplitPath_cls(path).mExtension.Lower();
    if (extension == ".png") return wxBITMAP_TYPE_PNG;
    if (extension == ".jpg" || extension == ".jpeg") return wxBITMAP_TYPE_JPEG;
    if (extension == ".tif" || extension == ".tiff") return wxBITMAP_TYPE_TIFF;
    if (extension == ".bmp") return wxBITMAP_TYPE_BMP;
    return wxBITMAP_TYPE_INVALID;
}

}  // namespace

void ImageFile_cls::InitHandlers() {
    wxInitAllImageHandlers();
}

bool ImageFile_cls::IsKnownFormat(const wxString& path) {
    return FormatOf(path) != wxBITMAP_TYPE_INVALID;
}

wxString ImageFile_cls::Write(const wxString& path, int width, int height, const std::vector<uint8_t>& rgb) {
    wxImage image(width, height, false);
    std::copy(rgb.begin(), rgb.end(), image.GetData());

    wxMemoryOutputStream stream;
    if (!image.SaveFile(stream, FormatOf(path))) return path + ": the picture cannot be encoded";
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return OutputFile_cls::WriteWhole(path, bytes, OutputFile_cls::Sync::No);
}
