#include <gtest/gtest.h>

#include <cmath>

#include "scene/clsRoundView.h"

namespace {

/// The direction that the mesh shows at a pixel, by the corner nearest to it.
std::array<float, 3> At(const RoundView_cls& view, float x, float y) {
    const RoundView_cls::Vertex_cls* nearest = nullptr;
    float best = 1e9F;
    for (const auto& vertex : view.GetMesh()) {
        const float distance = std::hypot(vertex.pixel[0] - x, vertex.pixel[1] - y);
        if (distance < best) {
            best = distance;
            nearest = &vertex;
        }
    }
    EXPECT_LT(best, 8.0F);
    return nearest->direction;
}

double Degrees(double radians) {
    return radians * 180.0 / M_PI;
}

TEST(RoundViewTest, FisheyeAnglesGrowEvenlyFromTheMiddle) {
    const RoundView_cls view(RoundView_cls::Kind::Fisheye, 800, 400, 200.0);
    for (const double angle : {24.0, 48.0, 96.0}) {
        const auto up = At(view, 400.0F, static_cast<float>(200.0 + 2.0 * angle));
        EXPECT_NEAR(Degrees(std::acos(-up[2])), angle, 1.5);
        EXPECT_GT(up[1], 0.0F);
        const auto right = At(view, static_cast<float>(400.0 + 2.0 * angle), 200.0F);
        EXPECT_NEAR(Degrees(std::atan2(right[0], -right[2])), angle, 1.5);
    }
}

TEST(RoundViewTest, APanoramaGoesAllTheWayRoundAndEndsAtThePoles) {
    const RoundView_cls view(RoundView_cls::Kind::Panoramic, 720, 720, 360.0);
    const auto left = At(view, 180.0F, 360.0F);
    EXPECT_NEAR(Degrees(std::atan2(left[0], -left[2])), -90.0, 3.0);
    float top = 0.0F;
    for (const auto& vertex : view.GetMesh()) top = std::max(top, vertex.pixel[1]);
    EXPECT_FLOAT_EQ(top, 540.0F) << "a quarter of 720 pixels above the middle";
}

TEST(RoundViewTest, OnlyFacesThatAreSeenAreDrawn) {
    const auto faces = [](double angle) {
        int count = 0;
        for (const bool seen : RoundView_cls(RoundView_cls::Kind::Fisheye, 300, 300, angle).GetFaces())
            count += seen ? 1 : 0;
        return count;
    };
    EXPECT_EQ(faces(60.0), 1);
    EXPECT_EQ(faces(180.0), 5);
    EXPECT_EQ(faces(360.0), 6);
    EXPECT_LE(RoundView_cls(RoundView_cls::Kind::Panoramic, 16384, 16384, 0.01).GetFaceSide(), 4096);
}

}  // namespace
