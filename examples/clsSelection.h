#ifndef EXAMPLES_CLSSELECTION_H
#define EXAMPLES_CLSSELECTION_H

#include <cstddef>
#include <cstdint>
#include <vector>

/// Which particles a snapshot holds, and in which order.
class Selection_cls {
  public:
    Selection_cls(std::size_t particleCount, std::size_t snapshotCount, std::uint64_t seed);

    /// From now on a share of the particles appears in the first half of the snapshots or disappears in
    /// the second. The first particle always stays, so no snapshot is empty.
    void Vary();

    /// From now on the order differs from snapshot to snapshot.
    void Shuffle() { mShuffle = true; }

    std::vector<std::uint32_t> Indices(std::size_t snapshot) const;

  private:
    struct Presence_cls {
        std::uint32_t mFirst;
        std::uint32_t mEnd;
    };

    std::size_t mParticleCount;
    std::size_t mSnapshotCount;
    std::uint64_t mSeed;
    bool mShuffle = false;
    std::vector<Presence_cls> mPresences;  // empty while all particles are always there
};

#endif
