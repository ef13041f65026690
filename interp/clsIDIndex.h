#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "data/clsLargeMemory.h"
#include "interp/clsIDRange.h"

/// Where every ID of one snapshot stands. Built once for a pair of snapshots, then read by any number of
/// threads. IDs that lie close together get a table with an entry for every number in their range, all
/// others a table with open addressing; neither takes more than 24 bytes a particle. Only a snapshot in
/// which an ID occurs more than once needs another 4 bytes a particle and 4 an entry, for the lists of its
/// positions.
/// Units: positions are array indices, -1 stands for "nowhere".
/// Failure: std::bad_alloc at construction; a second thread that cannot be created ends the program.
class IDIndex_cls {
  public:
    explicit IDIndex_cls(std::span<const int32_t> ids);

    /// True when no ID occurs twice.
    bool IsUnique() const { return mListBegin.empty(); }
    /// For each ID asked for its position + 1, 0 for nowhere. Only for unique IDs.
    void FindPlaces(std::span<const int32_t> ids, int32_t* places) const;
    /// The ID's smallest position from `begin` (0 or more) to `end` - 1.
    int FindFirst(int32_t id, int begin, int end) const;

  private:
    // A table holds position + 1: memory that comes zeroed from the system is an empty table, and taking the
    // 1 off right behind every look-up would keep the processor from having as many of them under way.
    struct Hashed {
        int32_t id;
        int32_t place;
    };
    /// Both return true when an ID occurs twice.
    bool BuildDense(std::span<const int32_t> ids);
    bool BuildHashed(std::span<const int32_t> ids);
    /// Enters the places of some IDs, the first of which has `place`.
    static void Enter(std::span<const int32_t> ids, int32_t place, IDRange_cls range, int32_t* table);
    void BuildLists(std::span<const int32_t> ids);

    /// The ID's entry in the table, or an empty one.
    size_t EntryOf(int32_t id) const { return mIsDense ? mRange.EntryOf(id) : HashedEntryOf(id); }
    size_t HomeOf(int32_t id) const;
    size_t HashedEntryOf(int32_t id) const;
    int32_t PlaceIn(size_t entry) const;

    IDRange_cls mRange;
    bool mIsDense;
    size_t mSize = 0;  ///< entries of the table
    LargeMemory_cls mTable;
    /// With repeated IDs: the positions of entry e are mList[mListBegin[e]] to mList[mListBegin[e + 1] -
    /// 1], ascending.
    std::vector<uint32_t> mListBegin;
    std::vector<int32_t> mList;
};
