#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include "gui/clsPanelCamera.h"

class wxWindow;

/// The mouse over a view: a drag with the left button turns about the anchor, with the middle one or with the
/// Shift key pans, the wheel comes nearer, a double click on a particle makes it the anchor. A drag, and the
/// turns of the wheel that follow one another, are one step of the undo list; Escape takes a drag back.
/// Owned by the view's canvas. Threads: GUI thread.
class ViewNavigator_cls : public wxEvtHandler {
  public:
    ViewNavigator_cls(wxWindow& view, PanelCamera_cls& camera, ShownInstant_cls& instant);
    ~ViewNavigator_cls() override;

  private:
    enum class Gesture { None, Turn, Pan, Wheel };

    void OnButton(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    void Begin(Gesture gesture, const wxPoint& at);
    void End();
    CameraMotion::View GetView() const;

    wxWindow& mView;
    PanelCamera_cls& mCamera;
    ShownInstant_cls& mInstant;
    Gesture mGesture = Gesture::None;
    wxPoint mFrom;
    double mNotches = 0.0;
    wxTimer mWheelRest;
};
