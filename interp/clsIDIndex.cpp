#include "interp/clsIDIndex.h"

#include <sys/mman.h>
#include <wx/thread.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <functional>
#include <new>
#include <utility>

#include "seam/clsThreadCheck.h"

namespace {

/// A table by number needs 4 bytes an entry: up to this many entries a particle it is the smaller one.
constexpr size_t kDenseEntriesPerParticle = 4;
constexpr size_t kSmallTable = 4096;
constexpr size_t kHugePage = size_t{2} << 20;
/// Tables that do not fit into the processor's cache are worth a second thread.
constexpr size_t kTwoThreads = 2000000;
/// The entry that will be wanted after this many others is fetched from memory ahead of time.
constexpr size_t kAhead = 16;

using RangeWork = std::function<void(size_t begin, size_t end)>;

class HalfThread_cls final : public wxThread {
  public:
    HalfThread_cls(const RangeWork& work, size_t end) : wxThread(wxTHREAD_JOINABLE), mWork(work), mEnd(end) {}
    ExitCode Entry() override {
        mWork(0, mEnd);
        return nullptr;
    }

  private:
    const RangeWork& mWork;
    size_t mEnd;
};

/// Does the work on 0 to count - 1, large ones half on a thread of its own.
void OverRange(size_t count, const RangeWork& work) {
    if (count < kTwoThreads) return work(0, count);
    HalfThread_cls half(work, count / 2);
    ExpectThread(half.Create());
    ExpectThread(half.Run());
    work(count / 2, count);
    half.Wait();
}

}  // namespace

/// Mixes all bits without losing any, so that only equal IDs have equal hashes.
inline size_t IDIndex_cls::HomeSlot(int32_t id) const {
    auto hash = static_cast<uint32_t>(id);
    hash = (hash ^ (hash >> 16)) * 0x85ebca6bU;
    hash = (hash ^ (hash >> 13)) * 0xc2b2ae35U;
    hash ^= hash >> 16;
    return hash & (mSize - 1);
}

inline size_t IDIndex_cls::HashedSlot(int32_t id) const {
    size_t slot = HomeSlot(id);
    while (mHashed[slot].position >= 0 && mHashed[slot].id != id) slot = (slot + 1) & (mSize - 1);
    return slot;
}

/// The table is filled in random order: on small pages the faults would cost more than the filling.
template <class T>
IDIndex_cls::Table<T> IDIndex_cls::MakeTable(size_t size, T empty) {
    const size_t bytes = (size * sizeof(T) + kHugePage - 1) / kHugePage * kHugePage;
    Table<T> table(static_cast<T*>(std::aligned_alloc(kHugePage, bytes)));
    if (!table) throw std::bad_alloc();
    madvise(table.get(), bytes, MADV_HUGEPAGE);
    OverRange(size, [&](size_t begin, size_t end) {
        std::uninitialized_fill(table.get() + begin, table.get() + end, empty);
    });
    return table;
}

IDIndex_cls::IDIndex_cls(std::span<const int32_t> ids) {
    mRange = FindRange(ids);
    if (mRange.size <= std::max(kSmallTable, kDenseEntriesPerParticle * ids.size())) {
        if (BuildDense(ids)) BuildLists(ids);
    } else {
        if (BuildHashed(ids)) BuildLists(ids);
    }
}

IDIndex_cls::Range IDIndex_cls::FindRange(std::span<const int32_t> ids) {
    if (ids.empty()) return {};
    std::array<std::pair<int32_t, int32_t>, 2> halves;  // smallest and largest
    halves.fill({ids[0], ids[0]});
    OverRange(ids.size(), [&halves, ids](size_t begin, size_t end) {
        int32_t smallest = ids[begin];
        int32_t largest = ids[begin];
        for (size_t j = begin; j < end; ++j) {
            smallest = std::min(smallest, ids[j]);
            largest = std::max(largest, ids[j]);
        }
        halves[begin == 0 ? 0 : 1] = {smallest, largest};
    });
    const int32_t smallest = std::min(halves[0].first, halves[1].first);
    const int32_t largest = std::max(halves[0].second, halves[1].second);
    return {.smallest = smallest, .size = static_cast<size_t>(int64_t{largest} - smallest + 1)};
}

bool IDIndex_cls::BuildDense(std::span<const int32_t> ids) {
    mSize = mRange.size + 1;
    mDense = MakeTable<int32_t>(mSize, -1);
    OverRange(ids.size(), [table = mDense.get(), range = mRange, ids](size_t begin, size_t end) {
        for (size_t j = begin; j < end; ++j) {
            // Threads can meet in an entry, and either may win: an ID that repeats is looked up in the lists.
            const std::atomic_ref<int32_t> entry(table[range.SlotOf(ids[j])]);
            entry.store(static_cast<int32_t>(j), std::memory_order_relaxed);
        }
    });
    std::atomic<size_t> used{0};
    OverRange(mSize, [&used, table = mDense.get()](size_t begin, size_t end) {
        const auto empty = std::count(table + begin, table + end, -1);
        used += end - begin - static_cast<size_t>(empty);
    });
    return used != ids.size();
}

bool IDIndex_cls::BuildHashed(std::span<const int32_t> ids) {
    mSize = std::bit_ceil(ids.size() + ids.size() / 2);
    mHashed = MakeTable<Slot>(mSize, Slot{});
    bool repeated = false;
    for (size_t j = 0; j < ids.size(); ++j) {
        if (j + kAhead < ids.size()) __builtin_prefetch(&mHashed[HomeSlot(ids[j + kAhead])], 1);
        Slot& slot = mHashed[HashedSlot(ids[j])];
        repeated = repeated || slot.position >= 0;
        slot = {.id = ids[j], .position = static_cast<int32_t>(j)};
    }
    return repeated;
}

void IDIndex_cls::BuildLists(std::span<const int32_t> ids) {
    // The counts stand two entries further on, so that filling turns them into the begins.
    mListBegin.resize(mSize + 2);
    for (const int32_t id : ids) ++mListBegin[SlotOf(id) + 2];
    for (size_t slot = 2; slot < mListBegin.size(); ++slot) mListBegin[slot] += mListBegin[slot - 1];
    mList.resize(ids.size());
    for (size_t j = 0; j < ids.size(); ++j) {
        mList[mListBegin[SlotOf(ids[j]) + 1]++] = static_cast<int32_t>(j);
    }
}

void IDIndex_cls::Find(std::span<const int32_t> ids, int32_t* positions) const {
    if (mDense) {
        const Range range = mRange;
        for (size_t k = 0; k < ids.size(); ++k) positions[k] = mDense[range.SlotOf(ids[k])];
        return;
    }
    for (const int32_t id : ids) __builtin_prefetch(&mHashed[HomeSlot(id)]);
    for (size_t k = 0; k < ids.size(); ++k) positions[k] = mHashed[HashedSlot(ids[k])].position;
}

int IDIndex_cls::FindFirst(int32_t id, int begin, int end) const {
    const size_t slot = SlotOf(id);
    if (IsUnique()) {
        const int32_t position = mDense ? mDense[slot] : mHashed[slot].position;
        return position >= begin && position < end ? position : -1;
    }
    const auto first = mList.begin() + mListBegin[slot];
    const auto last = mList.begin() + mListBegin[slot + 1];
    const auto found = std::lower_bound(first, last, begin);
    return found != last && *found < end ? *found : -1;
}
