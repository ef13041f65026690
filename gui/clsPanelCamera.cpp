#include "gui/clsPanelCamera.h"

#include <cmath>

#include "gui/clsCommandSetView.h"
#include "render/clsPanelSettings.h"
#include "scene/clsCameraPath.h"
#include "timeline/clsCommandSetValue.h"
#include "timeline/clsParamEdit.h"
#include "timeline/clsTimeCtrl.h"

namespace {

constexpr CameraPath_cls::Group kPoseGroups[] = {CameraPath_cls::kPosition, CameraPath_cls::kDirection,
                                                 CameraPath_cls::kUp, CameraPath_cls::kAnchor};

std::vector<double> ValuesOf(const ViewCamera_cls& camera, CameraPath_cls::Group group) {
    const auto vector = [](const Vector3& v) { return std::vector<double>(v.begin(), v.end()); };
    switch (group) {
        case CameraPath_cls::kPosition:
            return vector(camera.mPose.mPosition);
        case CameraPath_cls::kDirection:
            return vector(camera.mPose.mDirection);
        case CameraPath_cls::kUp:
            return vector(camera.mPose.mUp);
        case CameraPath_cls::kAnchor:
            return vector(camera.mPose.mAnchor);
        default:
            return {camera.mAngle};
    }
}

/// Project files keep six decimals: what is seen is what they hold, so that a saved view looks the same when
/// it is opened. Scenes so small that this would show are left alone.
double Storable(double value) {
    return std::round(value * 1e6) / 1e6;
}

ViewCamera_cls Storable(const ViewCamera_cls& camera) {
    constexpr double kSmallScene = 0.01;
    ViewCamera_cls stored = camera;
    const PositionAndDirection_cls& pose = camera.mPose;
    const double distance =
        std::hypot(pose.mPosition[0] - pose.mAnchor[0], pose.mPosition[1] - pose.mAnchor[1],
                   pose.mPosition[2] - pose.mAnchor[2]);
    for (size_t i = 0; i < 3; ++i) {
        stored.mPose.mDirection[i] = Storable(pose.mDirection[i]);
        stored.mPose.mUp[i] = Storable(pose.mUp[i]);
        if (distance < kSmallScene) continue;
        stored.mPose.mPosition[i] = Storable(pose.mPosition[i]);
        stored.mPose.mAnchor[i] = Storable(pose.mAnchor[i]);
    }
    return stored;
}

bool IsAnimated(const ParamGroup_cls& group) {
    return group.GetParameter(0).IsTimeDependent();
}

}  // namespace

bool PanelCamera_cls::FollowsPath() const {
    return mPanel.mDisplayMode.mValue == static_cast<unsigned int>(DisplayMode::kFollowsPath);
}

bool PanelCamera_cls::IsPathAnimated() const {
    for (const CameraPath_cls::Group group : kPoseGroups) {
        if (IsAnimated(mContext.cameraPath.GetGroup(group))) return true;
    }
    return false;
}

PositionAndDirection_cls PanelCamera_cls::GetFit(const DataBounds_cls& bounds, Side side) const {
    const PositionAndDirection_cls front = FitPanel(bounds, mPanel);
    if (side == Side::Side) return CameraMotion::FromSide(front);
    if (side == Side::Top) return CameraMotion::FromTop(front);
    return front;
}

ViewCamera_cls PanelCamera_cls::Get() const {
    const double time = mContext.timeCtrl.GetDoubleIndex();
    const auto& bounds = mInstant.GetFirstBounds();
    std::optional<PositionAndDirection_cls> free;
    if (FollowsPath()) {
        if (mMoved.mPose && mMoved.mTime == time) return {*mMoved.mPose, mContext.cameraPath.GetAngle(time)};
        if (bounds) free = GetFit(*bounds, Side::Front);
    } else {
        free = mFree;
        if (!free && bounds) free = GetFit(*bounds, mSide);
    }
    return ChooseCamera(mContext.cameraPath, mPanel, time, free);
}

CameraMotion::View PanelCamera_cls::GetView(int width, int height) const {
    return {.width = width,
            .height = height,
            .angle = Get().mAngle,
            .orthographic = mPanel.mGeometry.mValue == PanelSettings_cls::kOrthographic,
            .orthoScale = mPanel.mOrthoScale.mValue > 0.0F ? mPanel.mOrthoScale.mValue : 1.0};
}

void PanelCamera_cls::Begin(const wxString& name) {
    mName = name;
    mStart = Get().mPose;
    mStartAngle = Get().mAngle;
    GCUndoList.BeginDrag(name);
}

void PanelCamera_cls::Move(const PositionAndDirection_cls& pose) {
    const ShownInstant_cls::CameraMove cameraOnly(mInstant);
    GCUndoList.RestartDrag();
    Store(mName, pose);
}

void PanelCamera_cls::End() {
    mStart.reset();
    GCUndoList.EndDrag();
}

void PanelCamera_cls::Cancel() {
    mStart.reset();
    GCUndoList.CancelDrag();
}

void PanelCamera_cls::Set(const wxString& name, const PositionAndDirection_cls& pose) {
    Begin(name);
    Move(pose);
    End();
}

void PanelCamera_cls::Store(const wxString& name, const PositionAndDirection_cls& pose) {
    const auto push = [&name](CommandSetView_cls::Pose& stored, const CommandSetView_cls::Pose& value) {
        GCUndoList.PushAndExec(std::make_unique<CommandSetView_cls>(name, stored, value),
                               std::make_unique<CommandSetView_cls>(name, stored, stored));
    };
    if (!FollowsPath()) {
        push(mFree, pose);
    } else if (IsPathAnimated()) {
        const double time = mContext.timeCtrl.GetDoubleIndex();
        // A move that belongs to another frame is not what an undo should bring back here.
        if (mMoved.mTime != time) mMoved.mPose.reset();
        mMoved.mTime = time;
        push(mMoved.mPose, pose);
    } else {
        WritePath(name, Storable(ViewCamera_cls{pose, mStartAngle}));
    }
}

void PanelCamera_cls::WritePath(const wxString& name, const ViewCamera_cls& camera) {
    const UndoBlock_cls block(name);
    // The angle of a path that nobody has touched was the panel's own, and goes with the first move.
    const bool withAngle = mContext.cameraPath.IsUntouched();
    for (size_t i = 0; i < CameraPath_cls::kGroupCount; ++i) {
        const auto which = static_cast<CameraPath_cls::Group>(i);
        ParamGroup_cls& group = mContext.cameraPath.GetGroup(which);
        if (which == CameraPath_cls::kAngle && !withAngle) continue;
        const std::vector<double> values = ValuesOf(camera, which);
        ParamEdit_cls::ChangeGroup(name, group, [&] { group.SetKeyFrame(values.data(), false); });
    }
}

void PanelCamera_cls::FitToData() {
    const SnapData_cls* state = mInstant.Get();
    if (!state) return;
    const PositionAndDirection_cls pose = GetFit(BoundsOf(*state), FollowsPath() ? Side::Front : mSide);
    // Only the distance changes: whoever has turned the view keeps looking from there.
    PositionAndDirection_cls fitted = Get().mPose;
    const double distance =
        std::hypot(pose.mPosition[0] - pose.mAnchor[0], pose.mPosition[1] - pose.mAnchor[1],
                   pose.mPosition[2] - pose.mAnchor[2]);
    const Vector3& d = fitted.mDirection;
    const double length = std::hypot(d[0], d[1], d[2]);
    fitted.mAnchor = pose.mAnchor;
    for (size_t i = 0; i < 3; ++i) fitted.mPosition[i] = pose.mAnchor[i] - distance * d[i] / length;
    Set("Fit to Data", length > 0.0 ? fitted : pose);
}

void PanelCamera_cls::LookFrom(Side side) {
    mSide = side;
    const SnapData_cls* state = mInstant.Get();
    if (!state) return;
    Set("Look", GetFit(BoundsOf(*state), side));
}

void PanelCamera_cls::SetAngle(double angle) {
    const CameraPath_cls::Group kAngle = CameraPath_cls::kAngle;
    if (!FollowsPath() || mContext.cameraPath.IsUntouched()) {
        SetValueCommand("View Angle", mPanel.mPersAngle.mValue, static_cast<float>(angle),
                        CommandItem_cls::kUpdatePanels | CommandItem_cls::kUpdateRedraw);
        return;
    }
    ParamGroup_cls& group = mContext.cameraPath.GetGroup(kAngle);
    ParamEdit_cls::ChangeGroup("View Angle", group, [&] { group.SetKeyFrame(&angle); });
}

void PanelCamera_cls::Key() {
    const double time = mContext.timeCtrl.GetDoubleIndex();
    const ViewCamera_cls camera = Storable(Get());
    const UndoBlock_cls block("Key Camera");
    for (size_t i = 0; i < CameraPath_cls::kGroupCount; ++i) {
        const auto which = static_cast<CameraPath_cls::Group>(i);
        ParamGroup_cls& group = mContext.cameraPath.GetGroup(which);
        const std::vector<double> values = ValuesOf(camera, which);
        if (IsAnimated(group)) {
            // Half a step: the key that the timeline shows at this frame is the one that changes.
            ParamEdit_cls::ChangeGroup("Key Camera", group, [&] {
                group.SetKeyFrame(values.data(), true, time, 0.5 * Parameters_cls::msResolution);
            });
            continue;
        }
        for (int component = 0; component < group.GetDimension(); ++component) {
            ParamEdit_cls edit(group.GetParameter(component));
            edit.ClearKeys(time, values[static_cast<size_t>(component)]);
            edit.SetTimeDependent(true);
        }
    }
    if (mMoved.mPose) {
        GCUndoList.PushAndExec(
            std::make_unique<CommandSetView_cls>("Key Camera", mMoved.mPose, std::nullopt),
            std::make_unique<CommandSetView_cls>("Key Camera", mMoved.mPose, mMoved.mPose));
    }
}
