#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// The numbers from an array's smallest ID to its largest, and the entry of each in a table by number.
struct IDRange_cls {
    int32_t smallest = 0;
    size_t size = 0;
    /// What all IDs add up to, modulo 2^32.
    uint32_t sum = 0;

    /// Uses a second thread for large arrays.
    static IDRange_cls Find(std::span<const int32_t> ids);
    /// True when a table with an entry for every number is about as large as the array itself.
    bool IsDense(size_t count) const;
    /// True when the array of `count` IDs holds every number once, as far as size and sum tell.
    bool IsComplete(size_t count) const;
    /// The entry of an ID of the range; larger than all of them for others.
    size_t OffsetOf(int32_t id) const {
        // In unsigned numbers an ID below the range wraps to one far above it.
        return static_cast<uint32_t>(id) - static_cast<uint32_t>(smallest);
    }
    /// Entry `size`, which stays empty, stands for every ID outside.
    size_t EntryOf(int32_t id) const {
        const size_t offset = OffsetOf(id);
        return offset < size ? offset : size;
    }
};
