#pragma once

#include "render/clsGLPerspective.h"
#include "scene/clsViewCamera.h"

class PovText_cls;
struct SceneView_cls;

/// Turns the data's lengths into the scene's. The renderer computes with fixed tolerances, made for scenes of
/// some tens of lengths near the origin. Scenes keep the data's own lengths unless they are far from that.
struct PovSpace_cls {
    Vector3 origin{};    ///< the point of the data that becomes <0,0,0>
    double scale = 1.0;  ///< scene lengths in one of the data's

    static PovSpace_cls Of(const PositionAndDirection_cls& camera);
    bool IsPlain() const { return scale == 1.0 && origin == Vector3{}; }
    Vector3 Of(const Vector3& point) const {
        return {(point[0] - origin[0]) * scale, (point[1] - origin[1]) * scale,
                (point[2] - origin[2]) * scale};
    }
};

/// The camera of a view as the scene has it: the same field of view, cut and pose. Plain data, scene lengths.
/// The camera's right is the data's right: scenes are right-handed like the data.
class PovCamera_cls {
  public:
    PovCamera_cls(const SceneView_cls& view, const PovSpace_cls& space);

    /// The call of the macro in the camera template that makes this camera.
    void Write(PovText_cls& text) const;

    /// How far a point is from the camera: along its direction in plane projections, else as the crow flies.
    double GetDepth(const Vector3& point) const;
    /// The length that one pixel shows at a depth.
    double GetPixel(double depth) const { return mPixelFixed + mPixelGrowing * depth; }
    /// False for what the view's depth range cuts away.
    bool IsInRange(double depth, double radius) const {
        return depth + radius >= mNear && depth - radius <= mFar;
    }
    /// The unit vectors along which a flat thing at this point faces the view.
    struct Facing {
        Vector3 right;
        Vector3 up;
    };
    Facing GetFacing(const Vector3& point) const;

    /// Fisheye and panoramic: what faces the view faces the camera's place.
    bool IsRound() const;

  private:
    unsigned int mGeometry;
    double mAngle;
    int mWidth;
    int mHeight;
    Vector3 mPosition;
    Vector3 mDirection;
    Vector3 mRight;
    Vector3 mUp;
    double mHalfWidth = 1.0;  ///< at depth 1, or of the orthographic box
    double mHalfHeight = 1.0;
    double mNear;
    double mFar;
    double mBehind = 0.0;  ///< depth of the orthographic box
    double mPixelFixed = 0.0;
    double mPixelGrowing = 0.0;
};
