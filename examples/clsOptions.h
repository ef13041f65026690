#ifndef EXAMPLES_CLSOPTIONS_H
#define EXAMPLES_CLSOPTIONS_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "clsSnapshotWriter.h"

/// The command line cannot be understood.
class UsageError_cls : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Options_cls {
    std::size_t mParticleCount = 100000;
    std::size_t mSnapshotCount = 101;
    std::uint64_t mSeed = 1;
    SnapshotFormat mFormat = SnapshotFormat::kBinary;
    bool mShuffle = false;
    bool mVary = false;
    bool mHelp = false;
    std::string mName;
    std::filesystem::path mFolder;
};

/// Throws UsageError_cls.
Options_cls ParseOptions(int argumentCount, const char* const* arguments);

const char* HelpText();

#endif
