#pragma once

#include <cstddef>
#include <utility>

#include "data/clsLargeMemory.h"

/// Room for plain elements that is kept from frame to frame, on huge pages when it is large.
/// It is given back only when it is far too large, so that closing large data frees it.
/// Threads: one owner's; its threads share the elements in disjoint ranges.
/// Failure: std::bad_alloc from Reserve().
template <class Element>
class KeptArray_cls {
  public:
    /// Room for this many elements. What they held is lost when the room has to change.
    Element* Reserve(size_t count) {
        if (count > mRoom || count < mRoom / kTooLarge) {
            // A little more than asked for: a growing count must not cost a new array every frame.
            const size_t room = count + count / 8;
            mMemory = {};
            mRoom = 0;
            mMemory = LargeMemory_cls(room * sizeof(Element));
            mRoom = room;
        }
        return Get();
    }
    Element* Get() const { return mMemory.As<Element>(); }
    void Swap(KeptArray_cls& other) {
        std::swap(mMemory, other.mMemory);
        std::swap(mRoom, other.mRoom);
    }

  private:
    static constexpr size_t kTooLarge = 4;

    LargeMemory_cls mMemory;
    size_t mRoom = 0;
};
