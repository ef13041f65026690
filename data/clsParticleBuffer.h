#pragma once

#include <cstddef>

#include "data/clsLargeMemory.h"

/// The memory of one particle array. Large arrays are recycled: one that is freed is kept for the next
/// snapshot, because filling memory that has been touched before is several times as fast as filling fresh
/// memory, and the snapshots of a series have the same size.
/// At most kMaxSpare arrays are kept: the filled ones of two snapshots. All of it was in use before, and an
/// array that finds no spare of its size gives the oldest one back first, so recycling never needs more
/// memory than the particles themselves at their peak.
/// Threads: GUI thread (the arrays themselves may be filled by any). Failure: throws std::bad_alloc.
class ParticleBuffer_cls {
  public:
    enum class Content {
        Any,  ///< whatever an earlier snapshot left: for arrays that are filled from end to end
        Zero  ///< zeros that take no room until something is written: for arrays that may stay unfilled
    };
    static constexpr size_t kMaxSpare = 12;

    ParticleBuffer_cls() = default;
    ParticleBuffer_cls(size_t bytes, Content content);
    ParticleBuffer_cls(ParticleBuffer_cls&& other) noexcept = default;
    ParticleBuffer_cls& operator=(ParticleBuffer_cls&& other) noexcept;
    ~ParticleBuffer_cls();

    template <class Element>
    Element* As() const {
        return mMemory.As<Element>();
    }

    /// Bytes kept for recycling at present.
    static size_t GetSpareByte();
    /// Gives them back to the system, as when data are closed.
    static void DropSpare();

  private:
    LargeMemory_cls mMemory;
    Content mContent = Content::Zero;
};
