#pragma once

#include <wx/string.h>

#include <cstdint>
#include <vector>

/// Pictures as files: PNG, JPEG, TIFF and BMP by the name's extension. A picture appears whole or not at all.
/// Threads: Write() on any thread, one picture each.
class ImageFile_cls {
  public:
    /// Makes the formats known to wx; once, before the first picture.
    static void InitHandlers();
    static bool IsKnownFormat(const wxString& path);
    /// Writes three bytes a pixel, top row first. Empty, or the file's name and what went wrong.
    static wxString Write(const wxString& path, int width, int height, const std::vector<uint8_t>& rgb);
};
