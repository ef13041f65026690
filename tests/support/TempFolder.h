#pragma once

#include <filesystem>
#include <string>

/// A folder of its own for one test, removed with everything in it.
class TempFolder_cls {
  public:
    TempFolder_cls();
    ~TempFolder_cls();
    TempFolder_cls(const TempFolder_cls&) = delete;
    TempFolder_cls& operator=(const TempFolder_cls&) = delete;

    const std::filesystem::path& Path() const { return mPath; }
    std::string File(const std::string& name) const { return (mPath / name).string(); }
    /// Writes the bytes and returns the full name.
    std::string Write(const std::string& name, const std::string& bytes) const;

  private:
    std::filesystem::path mPath;
};

std::string ReadWholeFile(const std::string& name);
