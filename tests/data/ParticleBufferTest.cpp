#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "data/clsParticleBuffer.h"

namespace {

using Content = ParticleBuffer_cls::Content;
constexpr size_t kLarge = size_t{6} << 20;

class ParticleBufferTest : public ::testing::Test {
  protected:
    ParticleBufferTest() { ParticleBuffer_cls::DropSpare(); }
    ~ParticleBufferTest() override { ParticleBuffer_cls::DropSpare(); }
};

TEST_F(ParticleBufferTest, ALargeArrayThatIsFreedIsTheNextOneOfItsSize) {
    char* first = nullptr;
    {
        const ParticleBuffer_cls buffer(kLarge, Content::Any);
        first = buffer.As<char>();
        std::fill_n(first, kLarge, 'x');
    }
    EXPECT_EQ(ParticleBuffer_cls::GetSpareByte(), kLarge);
    const ParticleBuffer_cls zero(kLarge, Content::Zero);
    EXPECT_TRUE(std::all_of(zero.As<char>(), zero.As<char>() + kLarge, [](char c) { return c == 0; }));
    const ParticleBuffer_cls smaller(kLarge - kLarge / 10, Content::Any);
    EXPECT_EQ(smaller.As<char>(), first);
    EXPECT_EQ(ParticleBuffer_cls::GetSpareByte(), 0U);
}

TEST_F(ParticleBufferTest, WhatIsKeptIsBounded) {
    {
        std::vector<ParticleBuffer_cls> many;
        for (int i = 0; i < 40; ++i) many.emplace_back(kLarge, Content::Any);
    }
    EXPECT_EQ(ParticleBuffer_cls::GetSpareByte(), ParticleBuffer_cls::kMaxSpare * kLarge);
    const ParticleBuffer_cls other(2 * kLarge, Content::Any);
    EXPECT_EQ(ParticleBuffer_cls::GetSpareByte(), (ParticleBuffer_cls::kMaxSpare - 1) * kLarge)
        << "an array of another size takes the place of one that is kept";
    { const ParticleBuffer_cls small(1000, Content::Any); }
    { const ParticleBuffer_cls unfilled(kLarge, Content::Zero); }
    EXPECT_EQ(ParticleBuffer_cls::GetSpareByte(), (ParticleBuffer_cls::kMaxSpare - 1) * kLarge);
}

TEST_F(ParticleBufferTest, ArraysMoveAndImpossibleOnesFail) {
    ParticleBuffer_cls buffer(1000, Content::Zero);
    buffer = ParticleBuffer_cls(kLarge, Content::Any);
    char* memory = buffer.As<char>();
    const ParticleBuffer_cls moved = std::move(buffer);
    EXPECT_EQ(moved.As<char>(), memory);
    EXPECT_EQ(ParticleBuffer_cls().As<char>(), nullptr);
    EXPECT_THROW(ParticleBuffer_cls(~size_t{0} / 4, Content::Any), std::bad_alloc);
    EXPECT_THROW(ParticleBuffer_cls(~size_t{0} - 5, Content::Zero), std::bad_alloc);
}

}  // namespace
