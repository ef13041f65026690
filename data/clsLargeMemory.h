#pragma once

#include <cstddef>

/// A block of zeroed memory, given back with the object.
/// From kMappedByte on it comes straight from the system, starts on a huge page and asks for huge pages:
/// touching fresh memory in small pages costs several times what filling it does. Memory that nobody touches
/// then takes no room. Smaller blocks come from the heap, so that thousands of small snapshots do not run
/// into the system's limit on mappings.
/// Threads: any, one at a time. Failure: throws std::bad_alloc.
class LargeMemory_cls {
  public:
    static constexpr size_t kMappedByte = size_t{2} << 20;

    LargeMemory_cls() = default;
    explicit LargeMemory_cls(size_t bytes);
    LargeMemory_cls(LargeMemory_cls&& other) noexcept;
    LargeMemory_cls& operator=(LargeMemory_cls&& other) noexcept;
    ~LargeMemory_cls();

    size_t GetByte() const { return mByte; }
    bool IsMapped() const { return mByte >= kMappedByte; }
    /// Null when empty.
    template <class Element>
    Element* As() const {
        return static_cast<Element*>(mMemory);
    }

  private:
    void* mMemory = nullptr;
    size_t mByte = 0;
};
