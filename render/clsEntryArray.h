#pragma once

#include <cstddef>
#include <utility>

#include "data/clsLargeMemory.h"
#include "render/clsArrayAndIndex.h"

/// Room for draw-order entries that is kept from frame to frame, on huge pages when it is large.
/// It is given back only when it is far too large, so that closing large data frees it.
/// Threads: one owner's; its threads share the entries in disjoint ranges.
/// Failure: std::bad_alloc from Reserve().
class EntryArray_cls {
  public:
    /// Room for this many entries. What the entries held is lost when the room has to change.
    ArrayAndIndex_cls* Reserve(size_t count) {
        if (count > mRoom || count < mRoom / kTooLarge) {
            // A little more than asked for: a growing count must not cost a new array every frame.
            const size_t room = count + count / 8;
            mMemory = {};
            mRoom = 0;
            mMemory = LargeMemory_cls(room * sizeof(ArrayAndIndex_cls));
            mRoom = room;
        }
        return Get();
    }
    ArrayAndIndex_cls* Get() const { return mMemory.As<ArrayAndIndex_cls>(); }
    void Swap(EntryArray_cls& other) {
        std::swap(mMemory, other.mMemory);
        std::swap(mRoom, other.mRoom);
    }

  private:
    static constexpr size_t kTooLarge = 4;

    LargeMemory_cls mMemory;
    size_t mRoom = 0;
};
