#include "gui/clsViewNavigator.h"

#include <wx/window.h>

#include <cstdlib>

#include "timeline/clsUndoManager.h"

namespace {

/// Turns of the wheel with a shorter rest between them are one gesture.
constexpr int kWheelRestMs = 400;
/// A hand that clicks moves less.
constexpr int kClickPixels = 2;
/// A zooming drag of this length does what a notch of the wheel does.
constexpr double kPixelsPerNotch = 20.0;

}  // namespace

ViewNavigator_cls::ViewNavigator_cls(wxWindow& view, PanelCamera_cls& camera, ShownInstant_cls& instant,
                                     const Preference_cls& preference)
    : mView(view), mCamera(camera), mInstant(instant), mPreference(preference), mWheelRest(this) {
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_RIGHT_DOWN, wxEVT_LEFT_UP,
                             wxEVT_MIDDLE_UP, wxEVT_RIGHT_UP}) {
        mView.Bind(type, &ViewNavigator_cls::OnButton, this);
    }
    mView.Bind(wxEVT_MOTION, &ViewNavigator_cls::OnMotion, this);
    mView.Bind(wxEVT_MOUSEWHEEL, &ViewNavigator_cls::OnWheel, this);
    mView.Bind(wxEVT_LEFT_DCLICK, &ViewNavigator_cls::OnDoubleClick, this);
    mView.Bind(wxEVT_KEY_DOWN, &ViewNavigator_cls::OnKey, this);
    mView.Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { End(); });
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { End(); });
}

ViewNavigator_cls::~ViewNavigator_cls() {
    if (mCamera.IsMoving()) mCamera.End();
}

CameraMotion::View ViewNavigator_cls::GetView() const {
    const wxSize size = mView.GetClientSize();
    return mCamera.GetView(size.x, size.y);
}

ViewNavigator_cls::Drag ViewNavigator_cls::GetDrag(const wxMouseEvent& event) const {
    if (event.MiddleDown()) return mPreference.GetGesture(Preference_cls::kMiddle);
    if (event.RightDown()) return mPreference.GetGesture(Preference_cls::kRight);
    if (event.ShiftDown()) return mPreference.GetGesture(Preference_cls::kShiftLeft);
    if (event.ControlDown()) return mPreference.GetGesture(Preference_cls::kCtrlLeft);
    if (event.AltDown()) return mPreference.GetGesture(Preference_cls::kAltLeft);
    return mPreference.GetGesture(Preference_cls::kLeft);
}

void ViewNavigator_cls::End() {
    mWheelRest.Stop();
    mDrag = Drag::None;
    if (mView.HasCapture()) mView.ReleaseMouse();
    if (!mCamera.IsMoving()) return;
    mCamera.End();
    EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
}

void ViewNavigator_cls::OnButton(wxMouseEvent& event) {
    event.Skip();
    if (event.ButtonUp()) {
        if (mDrag != Drag::None) End();
        return;
    }
    mView.SetFocus();
    End();
    mDrag = GetDrag(event);
    mFrom = event.GetPosition();
    if (mDrag != Drag::None) mView.CaptureMouse();
}

void ViewNavigator_cls::OnMotion(wxMouseEvent& event) {
    if (mDrag == Drag::None) return;
    const wxPoint way = event.GetPosition() - mFrom;
    if (!mCamera.IsMoving()) {
        if (std::abs(way.x) <= kClickPixels && std::abs(way.y) <= kClickPixels) return;
        mCamera.Begin(mDrag == Drag::Turn ? "Turn View" : mDrag == Drag::Pan ? "Move View" : "Zoom View");
    }
    const PositionAndDirection_cls& start = mCamera.GetStart();
    if (mDrag == Drag::Turn) mCamera.Move(CameraMotion::Turn(start, GetView(), way.x, way.y));
    if (mDrag == Drag::Pan) mCamera.Move(CameraMotion::Pan(start, GetView(), way.x, way.y));
    if (mDrag == Drag::Zoom) mCamera.Move(CameraMotion::Dolly(start, -way.y / kPixelsPerNotch));
}

void ViewNavigator_cls::OnWheel(wxMouseEvent& event) {
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelDelta() == 0) return;
    if (mDrag != Drag::None) return;
    if (!mCamera.IsMoving()) {
        mNotches = 0.0;
        mCamera.Begin("Zoom View");
    }
    mNotches += static_cast<double>(event.GetWheelRotation()) / event.GetWheelDelta();
    mCamera.Move(CameraMotion::Dolly(mCamera.GetStart(), mNotches));
    mWheelRest.StartOnce(kWheelRestMs);
}

void ViewNavigator_cls::OnDoubleClick(wxMouseEvent& event) {
    End();
    mFrom = event.GetPosition();
    SetAnchor();
    // Whoever clicks and drags at once means the drag as well.
    mDrag = mPreference.GetGesture(Preference_cls::kLeft);
    if (mDrag != Drag::None) mView.CaptureMouse();
}

void ViewNavigator_cls::SetAnchor() {
    const SnapData_cls* state = mInstant.Get();
    if (!state) return;
    PositionAndDirection_cls pose = mCamera.Get().mPose;
    const auto place = CameraMotion::Pick(pose, GetView(), *state, mFrom.x, mFrom.y);
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
