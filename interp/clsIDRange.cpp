#include "interp/clsIDRange.h"

#include <algorithm>
#include <array>

#include "interp/clsFour.h"
#include "interp/clsTwoThreads.h"

namespace {

/// A table by number needs 4 bytes an entry: up to this many entries a particle it is smaller than one with
/// open addressing.
constexpr size_t kDenseEntriesPerParticle = 4;
constexpr size_t kSmallTable = 4096;

struct Summary {
    int32_t smallest = INT32_MAX;
    int32_t largest = INT32_MIN;
    uint32_t sum = 0;
    void Take(int32_t number) {
        smallest = std::min(smallest, number);
        largest = std::max(largest, number);
        sum += static_cast<uint32_t>(number);
    }
    void Take(const Summary& other) {
        smallest = std::min(smallest, other.smallest);
        largest = std::max(largest, other.largest);
        sum += other.sum;
    }
};

Summary Summarise(std::span<const int32_t> ids) {
    using FourUnsigned = uint32_t __attribute__((vector_size(16)));
    Four low = Four{} + INT32_MAX;
    Four high = Four{} + INT32_MIN;
    FourUnsigned sum{};
    size_t j = 0;
    for (; j + 4 <= ids.size(); j += 4) {
        const Four four = LoadFour(&ids[j]);
        low = four < low ? four : low;
        high = four > high ? four : high;
        sum += reinterpret_cast<FourUnsigned>(four);
    }
    Summary summary;
    for (int k = 0; k < 4 && j > 0; ++k) summary.Take({low[k], high[k], sum[k]});
    for (; j < ids.size(); ++j) summary.Take(ids[j]);
    return summary;
}

}  // namespace

IDRange_cls IDRange_cls::Find(std::span<const int32_t> ids) {
    if (ids.empty()) return {};
    std::array<Summary, 2> halves;
    TwoThreads_cls::OverRange(ids.size(), [&halves, ids](size_t begin, size_t end) {
        halves[begin == 0 ? 0 : 1] = Summarise(ids.subspan(begin, end - begin));
    });
    halves[0].Take(halves[1]);
    const auto& [smallest, largest, sum] = halves[0];
    return {.smallest = smallest, .size = static_cast<size_t>(int64_t{largest} - smallest + 1), .sum = sum};
}

bool IDRange_cls::IsDense(size_t count) const {
    return size <= std::max(kSmallTable, kDenseEntriesPerParticle * count);
}

bool IDRange_cls::IsComplete(size_t count) const {
    const uint64_t n = count;
    const uint64_t expected = n * static_cast<uint64_t>(int64_t{smallest}) + n * (n - 1) / 2;
    return size == count && sum == static_cast<uint32_t>(expected);
}
