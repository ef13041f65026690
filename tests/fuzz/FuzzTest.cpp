#include <gtest/gtest.h>

#include "fuzz/Fuzz.h"

TEST(FuzzTest, ReadersSurviveMutatedInput) {
    EXPECT_EQ(RunFuzz(20000, 1), "");
}
