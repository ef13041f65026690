#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "seam/clsInputFile.h"

/// The first megabyte of a file: enough to tell what it is, read in an instant however long the file is.
struct FileStart_cls {
    static constexpr size_t kMostByte = size_t{1} << 20;

    explicit FileStart_cls(const InputFile_cls& file);

    /// The start holds all of the file.
    bool IsWhole() const { return mBytes.size() == mFileByte; }
    /// The lines that end within the start, and a last one without line feed when the file ends there.
    std::string_view WholeLines() const;

    std::string mBytes;
    uint64_t mFileByte;
};
