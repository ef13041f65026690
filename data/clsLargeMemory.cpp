#include "data/clsLargeMemory.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

namespace {

constexpr size_t kHugePage = size_t{2} << 20;
constexpr size_t kPage = 4096;

size_t RoundUp(size_t bytes, size_t unit) {
    return (bytes + unit - 1) / unit * unit;
}

/// Maps one huge page more than asked for and cuts off what lies before and behind the aligned block.
void* MapAligned(size_t bytes) {
    if (bytes > std::numeric_limits<size_t>::max() / 2) throw std::bad_alloc();
    const size_t wanted = RoundUp(bytes, kPage);
    const size_t mapped = wanted + kHugePage;
    void* memory = mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    char* first = static_cast<char*>(memory);
    const size_t before =
        RoundUp(reinterpret_cast<uintptr_t>(first), kHugePage) - reinterpret_cast<uintptr_t>(first);
    const size_t behind = mapped - before - wanted;
    if (before > 0) munmap(first, before);
    if (behind > 0) munmap(first + before + wanted, behind);
    // A wish: without huge pages everything works, only slower.
    madvise(first + before, wanted, MADV_HUGEPAGE);
    return first + before;
}

}  // namespace

LargeMemory_cls::LargeMemory_cls(size_t bytes) : mByte(bytes) {
    if (bytes == 0) return;
    mMemory = IsMapped() ? MapAligned(bytes) : std::calloc(bytes, 1);
    if (!mMemory) throw std::bad_alloc();
}

LargeMemory_cls::LargeMemory_cls(LargeMemory_cls&& other) noexcept
    : mMemory(std::exchange(other.mMemory, nullptr)), mByte(std::exchange(other.mByte, 0)) {}

LargeMemory_cls& LargeMemory_cls::operator=(LargeMemory_cls&& other) noexcept {
    std::swap(mMemory, other.mMemory);
    std::swap(mByte, other.mByte);
    return *this;
}

LargeMemory_cls::~LargeMemory_cls() {
    if (IsMapped()) {
        munmap(mMemory, RoundUp(mByte, kPage));
    } else {
        std::free(mMemory);
    }
}
