#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

/// Where every ID of one snapshot stands. Built once for a pair of snapshots, then read by any number of
/// threads. IDs that lie close together get a table with an entry for every number in their range, all others
/// a table with open addressing; neither takes more than 24 bytes a particle. Only a snapshot in which an ID
/// occurs more than once needs another 4 bytes a particle and 4 an entry, for the lists of its positions.
/// Units: positions are array indices, -1 stands for "nowhere". Failure: std::bad_alloc at construction.
class IDIndex_cls {
  public:
    explicit IDIndex_cls(std::span<const int32_t> ids);

    /// True when no ID occurs twice.
    bool IsUnique() const { return mListBegin.empty(); }
    /// For each ID asked for its position. Only for unique IDs.
    void Find(std::span<const int32_t> ids, int32_t* positions) const;
    /// The ID's smallest position from `begin` (0 or more) to `end` - 1.
    int FindFirst(int32_t id, int begin, int end) const;

  private:
    struct Slot {
        int32_t id = 0;
        int32_t position = -1;
    };
    /// Numbers in a row and the entry of each.
    struct Range {
        int32_t smallest = 0;
        size_t size = 0;
        /// Entry `size` stands for every ID outside.
        size_t SlotOf(int32_t id) const {
            // In unsigned numbers an ID below the range wraps to one far above it.
            const size_t offset = static_cast<uint32_t>(id) - static_cast<uint32_t>(smallest);
            return offset < size ? offset : size;
        }
    };
    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };
    template <class T>
    using Table = std::unique_ptr<T[], Free>;
    template <class T>
    static Table<T> MakeTable(size_t size, T empty);

    static Range FindRange(std::span<const int32_t> ids);
    /// Both return true when an ID occurs twice.
    bool BuildDense(std::span<const int32_t> ids);
    bool BuildHashed(std::span<const int32_t> ids);
    void BuildLists(std::span<const int32_t> ids);
    /// The ID's entry in the table, or an empty one.
    size_t SlotOf(int32_t id) const { return mDense ? mRange.SlotOf(id) : HashedSlot(id); }
    size_t HomeSlot(int32_t id) const;
    size_t HashedSlot(int32_t id) const;

    size_t mSize = 0;  ///< entries of the table
    Range mRange;
    Table<int32_t> mDense;
    Table<Slot> mHashed;
    /// With repeated IDs: the positions of entry s are mList[mListBegin[s]] to mList[mListBegin[s + 1] - 1],
    /// ascending.
    std::vector<uint32_t> mListBegin;
    std::vector<int32_t> mList;
};
