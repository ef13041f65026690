#pragma once

#include <wx/string.h>

#include <cstddef>
#include <string>

/// A file that appears whole or not at all: it is written under a temporary name in the same folder and
/// renamed by Commit(). Without Commit() nothing stays. Buffered. Threads: one at a time. Failure: Commit()
/// returns false and GetError() says why; writes after an error do nothing.
class OutputFile_cls {
  public:
    explicit OutputFile_cls(const wxString& path);
    ~OutputFile_cls();
    OutputFile_cls(const OutputFile_cls&) = delete;
    OutputFile_cls& operator=(const OutputFile_cls&) = delete;

    void Write(const void* bytes, size_t count);
    void Write(const std::string& bytes) { Write(bytes.data(), bytes.size()); }

    /// Durable: the bytes are on the disk before the name is, so that a crash leaves the old file or the new
    /// one.
    enum class Sync { No, Durable };
    bool Commit(Sync sync);
    /// The file's name and the reason in words, after a failure.
    const wxString& GetError() const { return mError; }

    /// Writes a whole file at once. Empty, or the error.
    static wxString WriteWhole(const wxString& path, const std::string& bytes, Sync sync);

  private:
    void Fail(const char* action);
    void Flush();
    void WriteThrough(const char* bytes, size_t count);

    wxString mPath;
    std::string mTarget;
    std::string mTemporary;
    std::string mBuffer;
    wxString mError;
    int mDescriptor = -1;
};
