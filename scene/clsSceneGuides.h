#pragma once

#include <wx/string.h>

#include <array>
#include <vector>

#include "render/clsPositionAndDirection.h"
#include "scene/clsViewCamera.h"

class LightSRCCtrl_cls;
class OverlayText_cls;
class PanelSettings_cls;
class PeriodicBoundary_cls;
class SnapData_cls;

/// PanelSettings_cls::mGridType. A panel that nobody has set up shows none: pictures are of the data.
enum class GridType : unsigned int {
    kNone = 0,
    kPlaneXY = 1,
    kPlaneXZ = 2,
    kPlaneYZ = 3,
    kThreePlanes = 4,
    kAxes = 5
};

/// The lines and marks that help to find one's way: grid, periodic box, anchor, lights, other cameras. They
/// are plain data until Draw() sends them, as distances from the camera, so that they stay sharp far from
/// the origin. Made for one view and thrown away. Threads: GUI thread. Units: the data's own lengths.
class SceneGuides_cls {
  public:
    using Colour = std::array<float, 4>;
    struct Vertex_cls {
        std::array<float, 3> position;  ///< from the camera
        Colour colour;
    };
    struct Tag_cls {
        Vector3 position;  ///< in the scene
        wxString text;
    };

    SceneGuides_cls(const PositionAndDirection_cls& camera, const std::array<float, 3>& background);

    /// Lines around the anchor at round numbers, some ten to either side, with numbers if tags are wanted.
    void AddGrid(unsigned int gridType, bool withTags);
    /// The box's twelve edges, from the origin or around it, wherever more of the particles are.
    void AddBox(const PeriodicBoundary_cls& periodic, const SnapData_cls* state);
    void AddAnchor();
    void AddLights(const LightSRCCtrl_cls& lights, double time);
    /// A small pyramid that opens towards what the camera sees.
    void AddCamera(const ViewCamera_cls& camera);

    /// With the projection of the view loaded. Lines may be smoothed or drawn inverted.
    void Draw(bool smooth, bool inverted) const;
    /// The texts beside their places, with the projection of the view loaded; none behind the camera.
    void DrawTags(const OverlayText_cls& text) const;

    /// The next of ..., 0.1, 0.2, 0.5, 1, 2, 5, 10, ... at or above a length.
    static double RoundUp(double length);

  private:
    void AddLine(const Vector3& from, const Vector3& to, const Colour& start, const Colour& end);
    void AddLine(const Vector3& from, const Vector3& to, const Colour& colour) {
        AddLine(from, to, colour, colour);
    }
    void AddPlane(size_t across, size_t along, double step, bool withTags);
    void AddAxes(double length, bool withTags);

    PositionAndDirection_cls mCamera;
    double mDistance;
    Colour mFaint;
    Colour mClear;
    std::vector<Vertex_cls> mLines;
    std::vector<Tag_cls> mTags;
};
