#include "timeline/clsFrameStepper.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

constexpr int kL = std::numeric_limits<int>::max();

struct StepCase {
    const char* what;
    std::vector<int> rules;    ///< last frame, anim step, sub-steps, repeat, work area
    std::vector<int> numbers;  ///< arguments, then what is expected
};

/// Calls check(stepper, numbers) for every case.
void ForEach(const std::vector<StepCase>& cases,
             void (*check)(const FrameStepper_cls& stepper, const std::vector<int>& n)) {
    for (const auto& [what, r, numbers] : cases) {
        SCOPED_TRACE(what);
        check(FrameStepper_cls({r[0], r[1], r[2], r[3] != 0, {r[4], r[5]}}), numbers);
    }
}

TEST(FrameStepperTest, RoundsToMultiplesInsideTheScene) {
    const std::vector<StepCase> cases = {
        {"up", {100, 5, 1, 0, 0, 0}, {8, 10}},
        {"into the scene", {100, 5, 1, 0, 0, 0}, {103, 100}},
        {"below 0", {100, 1, 1, 0, 0, 0}, {-9, 0}},
        {"largest", {kL, 1, 1, 0, 0, 0}, {kL, kL}},
        {"largest of all", {9, kL, 1, 0, 0, 0}, {kL, 0}},
    };
    ForEach(cases, [](const FrameStepper_cls& stepper, const std::vector<int>& n) {
        EXPECT_EQ(stepper.RoundFrame(n[0]), n[1]);
    });
}

TEST(FrameStepperTest, NextFrame) {
    // Frame, direction, clamp, wrap; the frame.
    const std::vector<StepCase> cases = {
        {"forward", {100, 1, 1, 0, 0, 100}, {10, 1, 0, 0, 11}},
        {"truncated to a multiple", {100, 5, 1, 0, 0, 100}, {7, 1, 0, 0, 10}},
        {"past the end", {100, 1, 1, 0, 0, 100}, {100, 1, 1, 1, 100}},
        {"past the end, repeating", {100, 1, 1, 1, 0, 100}, {100, 1, 1, 1, 0}},
        {"repeating into a later area", {100, 1, 1, 1, 20, 100}, {100, 1, 1, 1, 20}},
        {"backward below 0", {100, 1, 1, 0, 0, 100}, {0, -1, 1, 1, 0}},
        {"backward below 0, repeating", {100, 1, 1, 1, 0, 100}, {0, -1, 1, 1, 100}},
        {"backward from beyond the end", {100, 1, 1, 1, 0, 100}, {150, -1, 0, 1, 100}},
        {"backward from beyond the end, not repeating", {100, 1, 1, 0, 0, 100}, {150, -1, 0, 1, 0}},
        {"at the area's end", {100, 1, 1, 0, 20, 80}, {80, 1, 1, 1, 80}},
        {"at the area's begin", {100, 1, 1, 0, 20, 80}, {20, -1, 1, 1, 20}},
        {"area between multiples", {100, 5, 1, 0, 22, 83}, {25, -1, 1, 0, 20}},
        {"long scene", {20000000, 1, 1, 0, 0, 20000000}, {10000000, 1, 1, 1, 10000001}},
        {"largest frame", {kL, 1, 1, 1, 0, kL}, {kL, 1, 0, 1, 0}},
        {"no scene", {0, 1, 1, 1, 0, 0}, {0, 1, 1, 1, 0}},
    };
    ForEach(cases, [](const FrameStepper_cls& stepper, const std::vector<int>& n) {
        EXPECT_EQ(stepper.CalcNextFrame(n[0], n[1], n[2] != 0, n[3] != 0), n[4]);
    });
}

TEST(FrameStepperTest, NextSubStep) {
    // Frame, wanted sub-step, direction; the frame and sub-step.
    const std::vector<StepCase> cases = {
        {"within the frame", {100, 1, 4, 0, 0, 100}, {10, 2, 1, 10, 2}},
        {"back to the frame before", {100, 1, 4, 0, 0, 100}, {10, -1, -1, 9, 3}},
        {"the first frame plays its sub-steps", {100, 1, 4, 0, 0, 100}, {0, 1, 1, 0, 1}},
        {"no sub-step behind the last frame", {100, 1, 4, 0, 0, 100}, {100, 1, 1, 100, 0}},
        {"repeating from the last frame", {100, 1, 4, 1, 0, 100}, {100, 1, 1, 0, 0}},
        {"backward from 0", {100, 1, 4, 0, 0, 100}, {0, -1, -1, 0, 0}},
        {"backward from 0, repeating", {100, 1, 4, 1, 0, 100}, {0, -1, -1, 100, 0}},
        {"backward into the scene does not wrap", {100, 1, 4, 1, 0, 100}, {100, 2, -1, 100, 0}},
        {"the area's end", {100, 1, 4, 0, 20, 80}, {80, 1, 1, 80, 0}},
        {"the area's begin", {100, 1, 4, 0, 20, 80}, {20, -1, -1, 20, 0}},
        {"the area's begin plays its sub-steps", {100, 1, 4, 0, 20, 80}, {20, 1, 1, 20, 1}},
        {"the area's begin between multiples", {100, 5, 4, 0, 22, 80}, {20, 1, 1, 20, 1}},
        {"largest", {kL, 1, kL, 0, 0, kL}, {kL, kL, 1, kL, 0}},
    };
    ForEach(cases, [](const FrameStepper_cls& stepper, const std::vector<int>& n) {
        EXPECT_EQ(stepper.CalcNextFrameFromStep(n[0], n[1], true, true, n[2]), (FramePlace{n[3], n[4]}));
    });
}

}  // namespace
