#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

/// Where "Variable" finds an ID for particle i of A, by the rules word by word; -1 for nowhere.
inline int SearchByScanning(const std::vector<int32_t>& b, int i, int id) {
    const int countB = static_cast<int>(b.size());
    const auto scan = [&](int from, int to) {
        for (int j = from; j < to; ++j) {
            if (b[static_cast<size_t>(j)] == id) return j;
        }
        return -1;
    };
    if (i < countB && b[static_cast<size_t>(i)] == id) return i;
    for (const int w : {10, 100, 1000, 10000}) {
        if (countB < i - w) continue;
        const int j = scan(std::max(i - w, 0), std::min(i + w, countB));
        if (j >= 0) return j;
    }
    return scan(0, countB / 10);
}
