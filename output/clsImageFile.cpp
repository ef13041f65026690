#include "output/clsImageFile.h"

#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <algorithm>
#include <array>
#include <string>

#include "data/clsSplitPath.h"
#include "seam/clsInputFile.h"
#include "seam/clsOutputFile.h"

namespace {

/// Half the time of the usual level 6 for files a fifth larger; the filter suits smooth pictures, and those
/// of points as well as any.
constexpr int kPngLevel = 3;
constexpr int kPngFilterSub = 0x10;

wxBitmapType FormatOf(const wxString& path) {
    const wxString extension = SplitPath_cls(path).mExtension.Lower();
    if (extension == ".png") return wxBITMAP_TYPE_PNG;
    if (extension == ".jpg" || extension == ".jpeg") return wxBITMAP_TYPE_JPEG;
    if (extension == ".tif" || extension == ".tiff") return wxBITMAP_TYPE_TIFF;
    if (extension == ".bmp") return wxBITMAP_TYPE_BMP;
    return wxBITMAP_TYPE_INVALID;
}

/// Decoders fill up what is missing of these formats, so their ends are looked at: JPEG has a mark there, and
/// BMP says its size.
bool IsWhole(const std::string& bytes, wxBitmapType format) {
    if (format == wxBITMAP_TYPE_JPEG) return bytes.ends_with("\xff\xd9");
    if (format != wxBITMAP_TYPE_BMP) return true;
    uint32_t size = 0;
    for (size_t i = 6; i-- > 2;) size = size << 8 | static_cast<uint8_t>(i < bytes.size() ? bytes[i] : 0);
    return size == bytes.size();
}

}  // namespace

void ImageFile_cls::InitHandlers() {
    wxInitAllImageHandlers();
}

bool ImageFile_cls::IsKnownFormat(const wxString& path) {
    return FormatOf(path) != wxBITMAP_TYPE_INVALID;
}

wxString ImageFile_cls::WithEnding(const wxString& path, int filter) {
    static constexpr std::array<const char*, 3> kEndings = {".png", ".jpg", ".tif"};
    return IsKnownFormat(path) ? path : path + kEndings.at(static_cast<size_t>(std::clamp(filter, 0, 2)));
}

wxString ImageFile_cls::Write(const wxString& path, const Picture_cls& picture) {
    // Borrowed: the image neither frees nor writes them.
    wxImage image(picture.mWidth, picture.mHeight, const_cast<uint8_t*>(picture.mRGB.data()), true);
    image.SetOption(wxIMAGE_OPTION_PNG_COMPRESSION_LEVEL, kPngLevel);
    image.SetOption(wxIMAGE_OPTION_PNG_FILTER, kPngFilterSub);
    image.SetOption(wxIMAGE_OPTION_QUALITY, picture.mJpegQuality);

    wxMemoryOutputStream stream;
    if (!image.SaveFile(stream, FormatOf(path))) return path + ": the picture cannot be encoded";
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return OutputFile_cls::WriteWhole(path, bytes, OutputFile_cls::Sync::No);
}

std::optional<Picture_cls> ImageFile_cls::Read(const wxString& path, int width, int height) {
    const auto file = InputFile_cls::Open(path);
    // Compressed pictures are smaller than what they hold, but for some bytes about them.
    const uint64_t most = 4 * static_cast<uint64_t>(width) * static_cast<uint64_t>(height) + (1U << 20);
    if (!file || file->GetSize() == 0 || file->GetSize() > most) return std::nullopt;
    std::string bytes(file->GetSize(), '\0');
    if (file->ReadAt(0, bytes.data(), bytes.size()) != bytes.size() || !IsWhole(bytes, FormatOf(path)))
        return std::nullopt;

    const wxLogNull silent;  // a broken picture is an answer here
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    const wxImage image(stream, FormatOf(path));
    if (!image.IsOk() || image.GetWidth() != width || image.GetHeight() != height) return std::nullopt;
    const size_t size = 3 * static_cast<size_t>(width) * static_cast<size_t>(height);
    return Picture_cls{width, height, {image.GetData(), image.GetData() + size}};
}
