#include "render/clsGLPerspective.h"

#include <gtest/gtest.h>

#include <cmath>

#include "render/clsFitToData.h"

namespace {

TEST(GLPerspectiveTest, WidePicturesWidenTheAngle) {
    EXPECT_NEAR(GLPerspective_cls(800, 400, 35, 0.03, 5000).GetProjectionAngle(), 64.47, 0.01);
    EXPECT_DOUBLE_EQ(GLPerspective_cls(400, 400, 35, 0.03, 5000).GetProjectionAngle(), 35.0);
    EXPECT_DOUBLE_EQ(GLPerspective_cls(400, 800, 35, 0.03, 5000).GetProjectionAngle(), 35.0);
    // The cut value of pi is part of saved views.
    EXPECT_NE(GLPerspective_cls(800, 400, 35, 0.03, 5000).GetProjectionAngle(),
              2 * std::atan(std::tan(35 * M_PI / 360) * 2) * 180 / M_PI);
}

TEST(GLPerspectiveTest, OrthographicExtentsFollowTheAnchorsDistance) {
    PositionAndDirection_cls camera;
    camera.mPosition = {0, 0, 10};
    camera.mAnchor = {0, 0, 0};
    GLPerspective_cls view(800, 400, 35, 0.03, 5000);
    EXPECT_DOUBLE_EQ(view.GetOrthoExtent(camera).x, 10.0);
    EXPECT_DOUBLE_EQ(view.GetOrthoExtent(camera).y, 5.0);
    view.SetOrientationFlag(true);
    EXPECT_DOUBLE_EQ(view.GetOrthoExtent(camera).x, 5.0);
    EXPECT_DOUBLE_EQ(view.GetOrthoExtent(camera).y, 2.5);
}

TEST(FitToDataTest, FlyawaysAndBrokenPositionsDoNotMoveTheBounds) {
    std::vector<float> positions;
    for (int i = 0; i < 1000; ++i) {
        const double angle = 2 * M_PI * i / 1000;
        positions.insert(positions.end(), {static_cast<float>(5 + 2 * std::cos(angle)),
                                           static_cast<float>(2 * std::sin(angle)), 1.0F});
    }
    positions.insert(positions.end(), {1e20F, -1e20F, 1e20F, NAN, 0, 0, INFINITY, 0, 0});
    const DataBounds_cls bounds = DataBounds_cls::Of(positions);
    EXPECT_NEAR(bounds.mCentre[0], 5.0, 0.01);
    EXPECT_NEAR(bounds.mCentre[1], 0.0, 0.01);
    EXPECT_NEAR(bounds.mCentre[2], 1.0, 0.01);
    EXPECT_NEAR(bounds.mRadius, 2.0, 0.01);

    const auto camera = FitCamera(bounds, 90);
    EXPECT_NEAR(camera.mPosition[2], 1 + 1.05 * 2 * std::sqrt(2.0), 0.02);
    EXPECT_DOUBLE_EQ(DataBounds_cls::Of({}).mRadius, 1.0);
    EXPECT_DOUBLE_EQ(DataBounds_cls::Of(std::vector<float>{3, 3, 3}).mRadius, 1.0) << "a point has no extent";
}

}  // namespace
