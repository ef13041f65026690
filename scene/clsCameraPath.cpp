#include "scene/clsCameraPath.h"

#include <algorithm>

#include "seam/clsLineStream.h"

namespace {

constexpr const char* kCameraMarker = "---CameraPath";
constexpr double kDefaultAngle = 35.0;

std::unique_ptr<ParamGroup_cls> MakeGroup(const wxString& what, const std::vector<wxString>& components,
                                          const std::shared_ptr<const ParamHost_cls>& host) {
    const wxString name = "Camera" + what;
    // A component's name is its identifier in POV-Ray text, so it stands for itself.
    std::vector<wxString> names;
    for (const wxString& component : components) names.push_back(name + component);
    return std::make_unique<ParamGroup_cls>("Camera " + what, static_cast<int>(names.size()), names, name,
                                            false, host);
}

}  // namespace

CameraPath_cls::CameraPath_cls(const std::shared_ptr<const ParamHost_cls>& host) {
    mGroups[kPosition] = MakeGroup("Position", {"X", "Y", "Z"}, host);
    mGroups[kDirection] = MakeGroup("Direction", {"X", "Y", "Z"}, host);
    mGroups[kUp] = MakeGroup("Up", {"X", "Y", "Z"}, host);
    mGroups[kAngle] = MakeGroup("Angle", {""}, host);
    mGroups[kAnchor] = MakeGroup("Anchor", {"X", "Y", "Z"}, host);
    SetToDefault();
}

void CameraPath_cls::SetToDefault() {
    const PositionAndDirection_cls pose;
    const auto set = [this](Group which, const Vector3& values) {
        ParamGroup_cls& group = *mGroups[which];
        group.SetTimeDependent(false);
        for (int i = 0; i < group.GetDimension(); ++i)
            group.GetParameter(i).InitSet(values[static_cast<size_t>(i)]);
    };
    set(kPosition, pose.mPosition);
    set(kDirection, pose.mDirection);
    set(kUp, pose.mUp);
    set(kAngle, {kDefaultAngle});
    set(kAnchor, pose.mAnchor);
}

bool CameraPath_cls::IsUntouched() const {
    for (const auto& group : mGroups) {
        for (int i = 0; i < group->GetDimension(); ++i) {
            if (group->GetParameter(i).IsTimeDependent()) return false;
        }
    }
    const PositionAndDirection_cls pose = GetPose(0.0);
    const PositionAndDirection_cls untouched;
    return pose.mPosition == untouched.mPosition && pose.mDirection == untouched.mDirection &&
           pose.mUp == untouched.mUp && pose.mAnchor == untouched.mAnchor && GetAngle(0.0) == kDefaultAngle;
}

PositionAndDirection_cls CameraPath_cls::GetPose(double t) const {
    return {.mPosition = mGroups[kPosition]->GetVector(t),
            .mDirection = mGroups[kDirection]->GetVector(t),
            .mUp = mGroups[kUp]->GetVector(t),
            .mAnchor = mGroups[kAnchor]->GetVector(t)};
}

double CameraPath_cls::GetAngle(double t) const {
    return mGroups[kAngle]->GetParameter(0).Evaluate(t, Parameters_cls::msResolution);
}

wxString CameraPath_cls::Serialize() const {
    wxString text = wxString(kCameraMarker) + "\n";
    for (const auto& group : mGroups) text += group->Serialize();
    return text + kCameraMarker + "\n";
}

bool CameraPath_cls::ReadGroup(LineStream_cls& stream, const wxString& line) {
    return std::any_of(mGroups.begin(), mGroups.end(),
                       [&](const auto& group) { return group->ReadStrLine(stream, line); });
}

bool CameraPath_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    if (line != kCameraMarker) return ReadGroup(stream, line);
    wxString next;
    while (stream.ReadLine(next) && next != kCameraMarker) {
        if (ReadGroup(stream, next)) continue;
        stream.PutBack();  // the closing marker is missing
        break;
    }
    return true;
}
