#pragma once

#include <wx/string.h>

#include <optional>

#include "output/clsPicture.h"

/// Pictures as files: PNG, JPEG, TIFF and BMP by the name's extension. A picture appears whole or not at all.
/// Threads: Write() and Read() on any thread, one picture each.
class ImageFile_cls {
  public:
    /// Makes the formats known to wx; once, before the first picture.
    static void InitHandlers();
    static bool IsKnownFormat(const wxString& path);
    /// What a file dialog offers.
    static constexpr const char* kFilters =
        "PNG pictures (*.png)|*.png|JPEG pictures (*.jpg)|*.jpg|TIFF pictures (*.tif)|*.tif";
    /// The name, with the ending of that one of the filters where it has none that is known.
    static wxString WithEnding(const wxString& path, int filter = 0);
    /// Empty, or the file's name and what went wrong.
    static wxString Write(const wxString& path, const Picture_cls& picture);
    /// A whole picture of this size; null for a file that is missing, broken, or of another size.
    static std::optional<Picture_cls> Read(const wxString& path, int width, int height);
};
