#pragma once

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// A regular file opened for reading; closed with the object.
/// Threads: ReadAt() from any thread, several at a time.
/// Failure: Open() and ReadAt() say why in words; ReadAt() then returns fewer bytes.
class InputFile_cls {
  public:
    /// Null when the file is missing, unreadable or no regular file; `why` then holds the reason in words.
    static std::optional<InputFile_cls> Open(const wxString& path, wxString* why = nullptr);
    static bool CanOpen(const wxString& path) { return Open(path).has_value(); }

    InputFile_cls(InputFile_cls&& other) noexcept;
    InputFile_cls& operator=(InputFile_cls&& other) noexcept;
    ~InputFile_cls();

    /// Bytes in the file when it was opened.
    uint64_t GetSize() const { return mSize; }
    /// Reads from an absolute position. Returns the bytes read: fewer than asked for at the end of the file,
    /// or on a read error, whose reason is then put into `why`.
    size_t ReadAt(uint64_t position, void* destination, size_t bytes, std::string* why = nullptr) const;

  private:
    InputFile_cls(int descriptor, uint64_t size) : mDescriptor(descriptor), mSize(size) {}

    int mDescriptor;
    uint64_t mSize;
};
