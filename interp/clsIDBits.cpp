#include "interp/clsIDBits.h"

#include <algorithm>

IDBits_cls::IDBits_cls(const IDRange_cls& range)
    : mRange(range), mWords(range.size / 64 + 1), mMemory(mWords * sizeof(uint64_t)) {}

bool IDBits_cls::Add(std::span<const int32_t> ids) {
    auto* words = mMemory.As<uint64_t>();
    const IDRange_cls range = mRange;
    uint64_t repeated = 0;
    for (const int32_t id : ids) {
        const size_t entry = range.OffsetOf(id);
        const uint64_t bit = uint64_t{1} << entry % 64;
        const uint64_t word = words[entry / 64];
        repeated |= word & bit;
        words[entry / 64] = word | bit;
    }
    return repeated == 0;
}

void IDBits_cls::Assign(const IDBits_cls& other) {
    std::copy_n(other.mMemory.As<uint64_t>(), mWords, mMemory.As<uint64_t>());
}
