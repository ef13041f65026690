#pragma once

#include <wx/event.h>
#include <wx/gdicmn.h>
#include <wx/timer.h>

#include "data/clsPreference.h"
#include "gui/clsPanelCamera.h"

class wxWindow;

/// The mouse over a view: drags turn about the anchor, pan or zoom, by the buttons that the preferences bind
/// (left, middle or Shift, and right); the wheel comes nearer, a double click on a particle makes it the
/// anchor. A drag, and the turns of the wheel that follow one another, are one step of the undo list; Escape
/// takes a drag back. Owned by the view's canvas. Threads: GUI thread.
class ViewNavigator_cls : public wxEvtHandler {
  public:
    ViewNavigator_cls(wxWindow& view, PanelCamera_cls& camera, ShownInstant_cls& instant,
                      const Preference_cls& preference);
    ~ViewNavigator_cls() override;

  private:
    using Drag = Preference_cls::MouseGesture;

    void OnButton(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    /// Makes the particle at mFrom the anchor, if there is one.
    void SetAnchor();
    Drag GetDrag(const wxMouseEvent& event) const;
    void End();
    CameraMotion::View GetView() const;

    wxWindow& mView;
    PanelCamera_cls& mCamera;
    ShownInstant_cls& mInstant;
    const Preference_cls& mPreference;
    Drag mDrag = Drag::None;
    wxPoint mFrom;
    double mNotches = 0.0;
    wxTimer mWheelRest;
};
