#pragma once

#include "render/clsPositionAndDirection.h"

/// The projection of a view: perspective or orthographic, its angle and depth range, the size of the window
/// and of the picture that is cut from it. Angles in degrees, sizes in pixels, distances in data lengths.
class GLPerspective_cls {
  public:
    static constexpr double kOrthoDepth = 1000.0;

    GLPerspective_cls(int width, int height, double angle, double near, double far);

    double GetAspectRatio() const { return static_cast<double>(mWindowWidth) / mWindowHeight; }
    double GetClipAspectRatio() const { return static_cast<double>(mClipWidth) / mClipHeight; }
    void SetWindowSize(int width, int height);
    void SetClipSize(int width, int height);
    void SetPerspectiveFlag(bool perspective) { mPerspective = perspective; }
    void SetOrientationFlag(bool byWidth) { mOrthoByWidth = byWidth; }
    /// Depth of the orthographic box before and behind the camera.
    void SetOrthoDepth(double depth) { mOrthoDepth = depth; }
    /// Orthographic views show things so many times as large.
    void SetOrthoScale(double scale) { mOrthoScale = UsableScale(scale); }
    /// Scales that would show nothing count as 1.
    static double UsableScale(double scale);

    /// The angle that the perspective projection is loaded with, in both directions.
    double GetProjectionAngle() const;

    /// Half extents of the orthographic box for a camera at this distance from its anchor.
    struct OrthoExtent {
        double x;
        double y;
    };
    OrthoExtent GetOrthoExtent(const PositionAndDirection_cls& camera) const;

    /// Viewport of the whole window, and the projection matrix selected and reset.
    void SetViewportOnGL() const;
    /// Loads the projection. A perspective one covers a square of the window's longer side, so the viewport
    /// becomes that square around the window: pixels stay square and the picture keeps its angle.
    void SetPerspectiveOnGL(const PositionAndDirection_cls& camera) const;

    /// Pixels as units, from the lower left corner, until Pop2DMatrix(): for what lies over the picture.
    static void Push2DMatrix(int width, int height);
    static void Pop2DMatrix();

  private:
    bool mPerspective = true;
    bool mOrthoByWidth = false;
    double mAngle;
    double mNear;
    double mFar;
    double mOrthoDepth = kOrthoDepth;
    double mOrthoScale = 1.0;
    int mWindowWidth;
    int mWindowHeight;
    int mClipWidth;
    int mClipHeight;
};
