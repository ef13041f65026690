#include "interp/clsIDIndex.h"

#include <algorithm>
#include <atomic>
#include <bit>

#include "interp/clsFour.h"
#include "interp/clsTwoThreads.h"

namespace {

/// The entry that will be wanted after this many others is fetched from memory ahead of time.
constexpr size_t kHomesAhead = 16;

size_t CountUsed(std::span<const int32_t> table) {
    Four used{};
    size_t entry = 0;
    for (; entry + 4 <= table.size(); entry += 4) used -= LoadFour(&table[entry]) != 0;  // true is -1
    size_t count = 0;
    for (int k = 0; k < 4; ++k) count += static_cast<size_t>(used[k]);
    for (; entry < table.size(); ++entry) count += table[entry] != 0 ? 1 : 0;
    return count;
}

}  // namespace

/// Mixes all bits without losing any, so that only equal IDs have equal hashes.
inline size_t IDIndex_cls::HomeOf(int32_t id) const {
    auto hash = static_cast<uint32_t>(id);
    hash = (hash ^ (hash >> 16)) * 0x85ebca6bU;
    hash = (hash ^ (hash >> 13)) * 0xc2b2ae35U;
    hash ^= hash >> 16;
    return hash & (mSize - 1);
}

inline size_t IDIndex_cls::HashedEntryOf(int32_t id) const {
    const auto* table = mTable.As<Hashed>();
    size_t entry = HomeOf(id);
    while (table[entry].place != 0 && table[entry].id != id) entry = (entry + 1) & (mSize - 1);
    return entry;
}

inline int32_t IDIndex_cls::PlaceIn(size_t entry) const {
    return mIsDense ? mTable.As<int32_t>()[entry] : mTable.As<Hashed>()[entry].place;
}

IDIndex_cls::IDIndex_cls(std::span<const int32_t> ids)
    : mRange(IDRange_cls::Find(ids)), mIsDense(mRange.IsDense(ids.size())) {
    if (mIsDense ? BuildDense(ids) : BuildHashed(ids)) BuildLists(ids);
}

void IDIndex_cls::Enter(std::span<const int32_t> ids, int32_t place, IDRange_cls range, int32_t* table) {
    for (const int32_t id : ids) {
        // Threads can meet in an entry, and either may win: an ID that repeats is looked up in the lists.
        const std::atomic_ref<int32_t> entry(table[range.EntryOf(id)]);
        entry.store(place++, std::memory_order_relaxed);
    }
}

bool IDIndex_cls::BuildDense(std::span<const int32_t> ids) {
    mSize = mRange.size + 1;
    mTable = LargeMemory_cls(mSize * sizeof(int32_t));
    auto* table = mTable.As<int32_t>();
    TwoThreads_cls::OverRange(ids.size(), [table, range = mRange, ids](size_t begin, size_t end) {
        Enter(ids.subspan(begin, end - begin), static_cast<int32_t>(begin + 1), range, table);
    });
    std::atomic<size_t> used{0};
    TwoThreads_cls::OverRange(mSize, [&used, table](size_t begin, size_t end) {
        used += CountUsed({table + begin, end - begin});
    });
    return used != ids.size();
}

bool IDIndex_cls::BuildHashed(std::span<const int32_t> ids) {
    mSize = std::bit_ceil(ids.size() + ids.size() / 2);
    mTable = LargeMemory_cls(mSize * sizeof(Hashed));
    auto* table = mTable.As<Hashed>();
    bool repeated = false;
    for (size_t j = 0; j < ids.size(); ++j) {
        if (j + kHomesAhead < ids.size()) __builtin_prefetch(&table[HomeOf(ids[j + kHomesAhead])], 1);
        Hashed& entry = table[HashedEntryOf(ids[j])];
        repeated = repeated || entry.place != 0;
        entry = {.id = ids[j], .place = static_cast<int32_t>(j + 1)};
    }
    return repeated;
}

void IDIndex_cls::BuildLists(std::span<const int32_t> ids) {
    // The counts stand two entries further on, so that filling turns them into the begins.
    mListBegin.resize(mSize + 2);
    for (const int32_t id : ids) ++mListBegin[EntryOf(id) + 2];
    for (size_t entry = 2; entry < mListBegin.size(); ++entry) mListBegin[entry] += mListBegin[entry - 1];
    mList.resize(ids.size());
    for (size_t j = 0; j < ids.size(); ++j) {
        mList[mListBegin[EntryOf(ids[j]) + 1]++] = static_cast<int32_t>(j);
    }
}

void IDIndex_cls::FindPlaces(std::span<const int32_t> ids, int32_t* places) const {
    if (mIsDense) {
        const auto* table = mTable.As<int32_t>();
        const IDRange_cls range = mRange;
        for (size_t k = 0; k < ids.size(); ++k) places[k] = table[range.EntryOf(ids[k])];
        return;
    }
    for (const int32_t id : ids) __builtin_prefetch(&mTable.As<Hashed>()[HomeOf(id)]);
    for (size_t k = 0; k < ids.size(); ++k) places[k] = PlaceIn(HashedEntryOf(ids[k]));
}

int IDIndex_cls::FindFirst(int32_t id, int begin, int end) const {
    const size_t entry = EntryOf(id);
    if (IsUnique()) {
        const int position = PlaceIn(entry) - 1;
        return position >= begin && position < end ? position : -1;
    }
    const auto first = mList.begin() + mListBegin[entry];
    const auto last = mList.begin() + mListBegin[entry + 1];
    const auto found = std::lower_bound(first, last, begin);
    return found != last && *found < end ? *found : -1;
}
