#pragma once

#include <wx/string.h>

#include <cstddef>
#include <string>
#include <string_view>

/// The lines of one text, read one after another: a project file, a block of it, the clipboard.
/// Holds the whole text as bytes (UTF-8) and splits at line feeds; nothing else is stripped. A wxString is
/// given as ToBytes(text).
/// A reader that meets a line which belongs to someone else puts it back for them.
/// Bounds: a line is cut after kMaxLineLength bytes and the rest of it is skipped, so text without line feeds
/// costs no more than its own size.
/// Threads: one at a time.
class LineStream_cls {
  public:
    static constexpr size_t kMaxLineLength = 65536;

    explicit LineStream_cls(std::string bytes) : mBytes(std::move(bytes)) {}
    // Lines handed out as bytes point into the text.
    LineStream_cls(const LineStream_cls&) = delete;
    LineStream_cls& operator=(const LineStream_cls&) = delete;

    /// The next line without its line feed; false at the end of the text, and then the line is empty.
    bool ReadLine(wxString& line);
    /// The same as bytes, which live as long as the stream. For long tables of numbers.
    bool ReadLine(std::string_view& line);
    /// The line read last is read again next. At the end of the text, and before the first line, does
    /// nothing.
    void PutBack() { mNext = mLast; }

  private:
    std::string mBytes;
    size_t mLast = 0;  ///< where the line read last begins
    size_t mNext = 0;
};
