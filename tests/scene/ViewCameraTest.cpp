#include "scene/clsViewCamera.h"

#include <gtest/gtest.h>

#include <cmath>

#include "render/clsPanelSettings.h"
#include "scene/clsCameraPath.h"
#include "support/Printing.h"

namespace {

TEST(ViewCameraTest, AnglesAreLimitedToWhatAGeometryShows) {
    struct Case {
        double angle;
        unsigned int geometry;
        double shown;
        bool told;
    };
    const Case cases[] = {{150, PanelSettings_cls::kPerspective, 120, true},
                          {120, PanelSettings_cls::kPerspective, 120, true},
                          {119, PanelSettings_cls::kPerspective, 119, false},
                          {150, PanelSettings_cls::kOrthographic, 150, false},
                          {400, PanelSettings_cls::kFisheye, 360, false},
                          {-5, PanelSettings_cls::kPerspective, 0.01, false},
                          {NAN, PanelSettings_cls::kPanoramic, 0.01, false}};
    for (const Case& c : cases) {
        wxString message = "before\n";
        EXPECT_EQ(LimitAngle(c.angle, c.geometry, &message), c.shown);
        const wxString told = "View angle is limited to 120 deg in perspective view.\n";
        EXPECT_EQ(message, c.told ? "before\n" + told : wxString("before\n"));
    }
}

TEST(ViewCameraTest, DefaultDepthsFollowTheDistanceAndOthersDoNot) {
    PanelSettings_cls panel(0);
    const auto of = [&](double distance) {
        return DepthRange_cls::Of(panel, {.mPosition = {0, 0, distance}, .mAnchor = {0, 0, 0}});
    };
    for (const double distance : {0.3, 10.0, 100.0}) {
        EXPECT_NEAR(of(distance).mNear, 0.03, 1e-6);
        EXPECT_NEAR(of(distance).mFar, 5000.0, 1e-6);
        EXPECT_NEAR(of(distance).mOrtho, 1000.0, 1e-6);
    }
    EXPECT_NEAR(of(1e9).mFar, 5e10, 1e4);
    EXPECT_NEAR(of(3e-6).mNear, 3e-7, 1e-12);
    EXPECT_NEAR(of(0.0).mNear, 0.03, 1e-6) << "a camera in its anchor";
    panel.ReadStrLine("Panel0GLDepthMax=70");
    EXPECT_NEAR(of(1e9).mFar, 70.0, 1e-6);
    panel.ReadStrLine("Panel0GLDepthMin=90");
    EXPECT_NEAR(of(10.0).mNear, 0.03, 1e-6) << "nearer than near is no range";
}

TEST(ViewCameraTest, ACameraThatNobodyPlacedIsFree) {
    CameraPath_cls path;
    PanelSettings_cls panel(0);
    const PositionAndDirection_cls fitted{.mPosition = {1, 2, 3}};
    EXPECT_EQ(ChooseCamera(path, panel, 0.5, fitted).mPose.mPosition[0], 1.0);
    path.GetGroup(CameraPath_cls::kPosition).GetParameter(0).InitSet(7.0);
    EXPECT_EQ(ChooseCamera(path, panel, 0.5, fitted).mPose.mPosition[0], 7.0);
    panel.ReadStrLine("Panel0DisplayMode=1");
    panel.ReadStrLine("Panel0GLPersAngle=50");
    EXPECT_EQ(ChooseCamera(path, panel, 0.5, fitted).mPose.mPosition[0], 1.0);
    EXPECT_EQ(ChooseCamera(path, panel, 0.5, fitted).mAngle, 50.0);
}

}  // namespace
