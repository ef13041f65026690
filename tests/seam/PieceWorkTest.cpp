#include "seam/clsPieceWork.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace {

TEST(PieceWorkTest, PiecesAreTakenInOrderWhateverTheirCount) {
    for (const size_t count : {0U, 1U, 2U, 15U, 16U, 17U, 1000U}) {
        std::array<size_t, PieceWork_cls::kSlots> slots{};
        std::vector<size_t> taken;
        const auto make = [&](size_t piece, size_t slot) { slots.at(slot) = 3 * piece; };
        const auto take = [&](size_t piece, size_t slot) {
            EXPECT_EQ(piece, taken.size());
            taken.push_back(slots.at(slot));
        };
        PieceWork_cls::Run(count, make, take);
        ASSERT_EQ(taken.size(), count);
        for (size_t i = 0; i < count; ++i) EXPECT_EQ(taken[i], 3 * i);
    }
}

TEST(PieceWorkTest, WhatAPieceThrowsReachesTheCaller) {
    size_t taken = 0;
    const auto make = [](size_t piece, size_t) {
        if (piece == 40) throw std::runtime_error("no memory");
    };
    EXPECT_THROW(PieceWork_cls::Run(100, make, [&](size_t, size_t) { ++taken; }), std::runtime_error);
    EXPECT_EQ(taken, 40U);
}

}  // namespace
