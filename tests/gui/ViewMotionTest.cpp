#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "gui/clsCameraMotion.h"
#include "gui/clsViewLayout.h"

namespace {

double Distance(const Vector3& a, const Vector3& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

TEST(ViewMotionTest, TurnsKeepTheAnchorInSight) {
    PositionAndDirection_cls pose;
    pose.mAnchor = {1.0, 2.0, 3.0};
    pose.mPosition = {1.0, 2.0, 13.0};
    const CameraMotion::View view{.width = 400, .height = 200};
    for (int i = 0; i < 500; ++i) {
        // Over both poles and round about, in the ways that hands move.
        pose = CameraMotion::Turn(pose, view, 37.0 * std::sin(i), 53.0);
        ASSERT_NEAR(Distance(pose.mPosition, pose.mAnchor), 10.0, 1e-9);
        for (size_t k = 0; k < 3; ++k)
            ASSERT_NEAR(pose.mPosition[k] + 10.0 * pose.mDirection[k], pose.mAnchor[k], 1e-6);
    }
    // Across the shorter side: half a turn, to the other side of the anchor.
    const PositionAndDirection_cls half = CameraMotion::Turn(pose, view, 200.0, 0.0);
    EXPECT_NEAR(Distance(half.mPosition, pose.mPosition), 20.0, 1e-6);
}

TEST(ViewMotionTest, PansByWhatIsUnderTheMouse) {
    const PositionAndDirection_cls pose;  // ten lengths before the origin
    const CameraMotion::View perspective{.width = 300, .height = 100, .angle = 90.0};
    EXPECT_NEAR(CameraMotion::Pan(pose, perspective, 50.0, 0.0).mAnchor[0], -10.0, 1e-9);
    const CameraMotion::View orthographic{.width = 300, .height = 100, .orthographic = true};
    EXPECT_NEAR(CameraMotion::Pan(pose, orthographic, 0.0, 50.0).mAnchor[1], 5.0, 1e-9);
}

TEST(ViewMotionTest, PosesThatAreNoneStay) {
    PositionAndDirection_cls none;
    none.mDirection = {0.0, 0.0, 0.0};
    PositionAndDirection_cls endless;
    endless.mPosition[1] = std::numeric_limits<double>::infinity();
    for (const PositionAndDirection_cls& pose : {none, endless}) {
        EXPECT_EQ(CameraMotion::Turn(pose, {}, 3.0, 4.0).mPosition, pose.mPosition);
        EXPECT_EQ(CameraMotion::Pan(pose, {}, 3.0, 4.0).mPosition, pose.mPosition);
    }
    const PositionAndDirection_cls near = CameraMotion::Dolly({}, 1e9);
    EXPECT_GT(Distance(near.mPosition, near.mAnchor), 0.0);
}

TEST(ViewMotionTest, LayoutsFillTheirArea) {
    for (unsigned int layout = 0; layout <= 5; ++layout) {
        for (const wxSize& area : {wxSize(1280, 720), wxSize(701, 333), wxSize(1, 1), wxSize(0, 0)}) {
            const auto places = ViewLayout::Places(layout, area, 2);
            ASSERT_EQ(static_cast<int>(places.size()), ViewLayout::Count(layout));
            long long covered = 0;
            for (size_t i = 0; i < places.size(); ++i) {
                EXPECT_GE(std::min(places[i].width, places[i].height), 1);
                covered += static_cast<long long>(places[i].width) * places[i].height;
                if (area.x < 100) continue;
                EXPECT_TRUE(wxRect(area).Contains(places[i])) << layout;
                for (size_t j = 0; j < i; ++j) EXPECT_FALSE(places[i].Intersects(places[j])) << layout;
            }
            if (area.x < 100) continue;
            EXPECT_GT(covered, static_cast<long long>(area.x) * area.y * 98 / 100) << layout;
        }
    }
}

}  // namespace
