#ifndef EXAMPLES_CLSSNAPSHOTWRITER_H
#define EXAMPLES_CLSSNAPSHOTWRITER_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "clsGalaxyModel.h"

enum class SnapshotFormat { kBinary, kText, kDump };

struct Snapshot_cls {
    std::size_t mNumber = 0;
    std::uint64_t mStep = 0;
    float mTime = 0.0F;
    std::vector<Particle_cls> mParticles;
};

/// Writes snapshots as numbered files. A file appears under its name only when it is complete.
class SnapshotWriter_cls {
  public:
    /// Makes the folder if it is missing. Throws std::runtime_error with the folder's name.
    SnapshotWriter_cls(std::filesystem::path folder, std::string name, SnapshotFormat format);

    /// Throws std::runtime_error with the file's name; nothing is left of that file then.
    void Write(const Snapshot_cls& snapshot) const;

  private:
    std::filesystem::path FileName(std::size_t number) const;

    std::filesystem::path mFolder;
    std::string mName;
    SnapshotFormat mFormat;
};

#endif
