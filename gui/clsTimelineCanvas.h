#pragma once

#include <wx/window.h>

#include <optional>

#include "gui/clsTimelineView.h"

/// The window of the timeline under its play bar: draws the view, and turns mouse and keys into edits.
/// Owned by the timeline panel. Threads: GUI thread.
/// The rows may change between two events, so each event begins by gathering them anew.
class TimelineCanvas_cls : public wxWindow {
  public:
    TimelineCanvas_cls(wxWindow* parent, TimelineModel_cls& model);

    void RefreshAll();
    /// Shows that only the current frame has changed: cheap enough for every frame that is played.
    void RefreshCursor();
    bool IsShowingCurves() const { return mView.IsShowingCurves(); }
    void ShowCurves(bool show);
    /// Puts the lane of a group in sight and opens the dialog of its keys at t.
    void EditKey(ParamGroup_cls& group, double t);

  private:
    /// What a pressed button is about.
    enum class Gesture { None, Ruler, Keys, CurveKeys, Box, CurveBox, Pan, NamesEdge, CurvesEdge };

    void OnPaint(wxPaintEvent& event);
    void OnScroll(wxScrollWinEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnMiddleDown(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnUp(wxMouseEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);

    /// Brings rows, places and scroll bar up to date.
    void Prepare();
    void UpdateScrollbar();
    void Begin(Gesture gesture, wxPoint place);
    void DragTo(wxPoint place);
    void End();
    void Cancel();
    void PressName(wxMouseEvent& event);
    void PressTrack(wxMouseEvent& event);
    /// The key at a place in the tracks or the curves, and the lane it is of.
    struct Found {
        TimelineKeys_cls::Lane lane;
        double time;
    };
    std::optional<Found> FindTrackKey(wxPoint place) const;
    std::optional<Found> FindCurveKey(wxPoint place) const;
    /// Selects a key as a press on it does: alone, or with Ctrl or Shift beside the others.
    void PressKey(const std::optional<Found>& key, const wxMouseEvent& event);
    /// A menu works on the keys that are selected, or on the one it is opened over.
    void SelectForMenu(const std::optional<Found>& key);
    void DragKeys(wxPoint place);
    void DragBox(wxPoint place);
    void ShowHover(wxPoint place);
    void ShowKeyDialog(int row, double t);
    void MoveCurrentRow(int rows);
    bool DoCommandKey(int key);

    TimelineModel_cls& mModel;
    TimelineView_cls mView;
    TimelineTheme_cls mTheme;

    Gesture mGesture = Gesture::None;
    wxPoint mPressed;
    wxPoint mLast;
    wxPoint mHover = wxDefaultPosition;  ///< where the mouse is, when it is over the canvas
    bool mMoved = false;                 ///< the mouse has left the place where it was pressed
    double mPressedTime = 0.0;
    double mGrabbedTime = 0.0;  ///< of the key under the mouse
    int mCursorX = 0;           ///< where the current frame was drawn last
};
