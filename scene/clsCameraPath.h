#pragma once

#include <array>
#include <memory>

#include "render/clsPositionAndDirection.h"
#include "timeline/clsParamGroup.h"

class LineStream_cls;

/// The camera's way through the scene: position, direction, up, view angle and anchor, each a key-framed
/// group. Constant until keys are switched on. Owned by the application core. Threads: GUI thread. Units:
/// the data's own lengths, degrees; direction and up need not have length 1.
class CameraPath_cls {
  public:
    enum Group : size_t { kPosition, kDirection, kUp, kAngle, kAnchor, kGroupCount };

    explicit CameraPath_cls(const std::shared_ptr<const ParamHost_cls>& host = {});
    CameraPath_cls(const CameraPath_cls&) = delete;
    CameraPath_cls& operator=(const CameraPath_cls&) = delete;

    /// The pose and angle of a camera ten lengths before the origin, without keys.
    void SetToDefault();

    /// True while every group is the constant default: no project, no hand has placed the camera.
    bool IsUntouched() const;

    ParamGroup_cls& GetGroup(Group which) { return *mGroups[which]; }
    const ParamGroup_cls& GetGroup(Group which) const { return *mGroups[which]; }
    /// The pose at a normalised time.
    PositionAndDirection_cls GetPose(double t) const;
    double GetAngle(double t) const;

    wxString Serialize() const;
    /// Takes the block from its marker on, or one group; false, and nothing read, for any other line.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);

  private:
    bool ReadGroup(LineStream_cls& stream, const wxString& line);

    std::array<std::unique_ptr<ParamGroup_cls>, kGroupCount> mGroups;
};
