#pragma once

#include <array>

/// Particle i of A is particle j of B.
struct IDMatch_cls {
    int i;
    int j;
};

/// Where "Variable" looks in B for the ID of particle i of A. The order of the search is part of what a film
/// shows, duplicates of an ID included: the same index; then, with w = 10, 100, 1000 and 10000, the first hit
/// from max(i - w, 0) upwards below min(i + w, countB); then the first hit in the first tenth of B.
/// Where no ID of B repeats there is only one position to ask about, and the five tries come down to: it lies
/// in the widest window, or in the first tenth.
struct SearchOrder_cls {
    static constexpr std::array kHalfWidths = {10, 100, 1000, 10000};
    static constexpr int kWidest = kHalfWidths.back();

    /// The search through all of B covers only this part of it: films made so far show it.
    static constexpr int GetFirstTenth(int countB) { return countB / 10; }
    static constexpr bool IsNear(int i, int j) { return j - i >= -kWidest && j - i < kWidest; }
};
