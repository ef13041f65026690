#include "seam/clsTextCoding.h"

#include <wx/strconv.h>

namespace {

wxMBConvUTF8& Conversion() {
    static wxMBConvUTF8 conversion(wxMBConvUTF8::MAP_INVALID_UTF8_TO_PUA);
    return conversion;
}

}  // namespace

std::string ToBytes(const wxString& text) {
    const wxScopedCharBuffer buffer = text.mb_str(Conversion());
    return {buffer.data(), buffer.length()};
}

wxString FromBytes(const std::string& bytes) {
    return {bytes.data(), Conversion(), bytes.size()};
}

void InstallFileNameConversion() {
    wxConvFileName = &Conversion();
}
