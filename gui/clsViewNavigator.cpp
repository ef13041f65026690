#include "gui/clsViewNavigator.h"

#include <wx/window.h>

#include <cstdlib>

#include "timeline/clsUndoManager.h"

namespace {

/// Turns of the wheel with a shorter rest between them are one gesture.
constexpr int kWheelRestMs = 400;
/// A hand that clicks moves less.
constexpr int kClickPixels = 2;

}  // namespace

ViewNavigator_cls::ViewNavigator_cls(wxWindow& view, PanelCamera_cls& camera, ShownInstant_cls& instant)
    : mView(view), mCamera(camera), mInstant(instant), mWheelRest(this) {
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_LEFT_UP, wxEVT_MIDDLE_UP})
        mView.Bind(type, &ViewNavigator_cls::OnButton, this);
    mView.Bind(wxEVT_MOTION, &ViewNavigator_cls::OnMotion, this);
    mView.Bind(wxEVT_MOUSEWHEEL, &ViewNavigator_cls::OnWheel, this);
    mView.Bind(wxEVT_LEFT_DCLICK, &ViewNavigator_cls::OnDoubleClick, this);
    mView.Bind(wxEVT_KEY_DOWN, &ViewNavigator_cls::OnKey, this);
    mView.Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { End(); });
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { End(); });
}

ViewNavigator_cls::~ViewNavigator_cls() {
    End();
}

CameraMotion::View ViewNavigator_cls::GetView() const {
    const wxSize size = mView.GetClientSize();
    return mCamera.GetView(size.x, size.y);
}

void ViewNavigator_cls::Begin(Gesture gesture, const wxPoint& at) {
    End();
    mGesture = gesture;
    mFrom = at;
    mNotches = 0.0;
}

void ViewNavigator_cls::End() {
    mWheelRest.Stop();
    mGesture = Gesture::None;
    if (mView.HasCapture()) mView.ReleaseMouse();
    if (!mCamera.IsMoving()) return;
    mCamera.End();
    EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
}

void ViewNavigator_cls::OnButton(wxMouseEvent& event) {
    event.Skip();
    if (event.ButtonUp()) {
        if (mGesture == Gesture::Turn || mGesture == Gesture::Pan) End();
        return;
    }
    mView.SetFocus();
    const bool pan = event.MiddleDown() || event.ShiftDown();
    Begin(pan ? Gesture::Pan : Gesture::Turn, event.GetPosition());
    if (!mView.HasCapture()) mView.CaptureMouse();
}

void ViewNavigator_cls::OnMotion(wxMouseEvent& event) {
    if (mGesture != Gesture::Turn && mGesture != Gesture::Pan) return;
    const wxPoint way = event.GetPosition() - mFrom;
    if (!mCamera.IsMoving()) {
        if (std::abs(way.x) <= kClickPixels && std::abs(way.y) <= kClickPixels) return;
        mCamera.Begin(mGesture == Gesture::Turn ? "Turn View" : "Move View");
    }
    const auto move = mGesture == Gesture::Turn ? CameraMotion::Turn : CameraMotion::Pan;
    mCamera.Move(move(mCamera.GetStart(), GetView(), way.x, way.y));
}

void ViewNavigator_cls::OnWheel(wxMouseEvent& event) {
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelDelta() == 0) return;
    if (mGesture == Gesture::Turn || mGesture == Gesture::Pan) return;
    if (mGesture == Gesture::None) {
        Begin(Gesture::Wheel, event.GetPosition());
        mCamera.Begin("Zoom View");
    }
    mNotches += static_cast<double>(event.GetWheelRotation()) / event.GetWheelDelta();
    mCamera.Move(CameraMotion::Dolly(mCamera.GetStart(), mNotches));
    mWheelRest.StartOnce(kWheelRestMs);
}

void ViewNavigator_cls::OnDoubleClick(wxMouseEvent& event) {
    End();
    const SnapData_cls* state = mInstant.Get();
    if (!state) return;
    PositionAndDirection_cls pose = mCamera.Get().mPose;
    const auto place =
        CameraMotion::Pick(pose, GetView(), *state, event.GetPosition().x, event.GetPosition().y);
    if (!place) return;
    pose.mAnchor = *place;
    mCamera.Set("Set Anchor", pose);
}

void ViewNavigator_cls::OnKey(wxKeyEvent& event) {
    if (event.GetKeyCode() != WXK_ESCAPE || !mCamera.IsMoving()) {
        event.Skip();
        return;
    }
    mCamera.Cancel();
    End();
    EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
}
