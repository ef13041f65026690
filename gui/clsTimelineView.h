#pragma once

#include "gui/clsTimelineCurves.h"
#include "gui/clsTimelineLanes.h"
#include "gui/clsTimelineRuler.h"

/// How the timeline is laid out and drawn: at the left the names, at the right ruler, tracks and, if wanted,
/// curves, over which the current frame's line runs.
/// Owned by the timeline's canvas. Threads: GUI thread. Units: pixels from the canvas's top left corner.
class TimelineView_cls {
  public:
    enum class Area { Corner, Ruler, NamesEdge, Names, Tracks, CurvesEdge, CurveValues, Curves };

    explicit TimelineView_cls(TimelineModel_cls& model)
        : mRuler(model), mLanes(model), mCurves(model), mModel(model) {}

    /// Fits everything into a size. Called before anything else that needs places.
    void SetLayout(wxSize size, const TimelineTheme_cls& theme);
    Area FindArea(wxPoint place) const;
    void Draw(wxGraphicsContext& gc, const TimelineTheme_cls& theme, const wxRect& clip) const;

    // Places inside the parts
    int ToTrackX(int x) const { return x - mNamesWidth; }
    int ToLaneY(int y) const { return y - mRulerHeight; }
    int ToCurveY(int y) const { return y - mRulerHeight - mLanesHeight; }
    wxPoint ToLanes(wxPoint place) const { return {ToTrackX(place.x), ToLaneY(place.y)}; }
    wxPoint ToCurves(wxPoint place) const { return {ToTrackX(place.x), ToCurveY(place.y)}; }

    int GetNamesWidth() const { return mNamesWidth; }
    void SetNamesWidth(int width) { mWantedNamesWidth = width; }
    int GetLanesHeight() const { return mLanesHeight; }
    bool IsShowingCurves() const { return mShowCurves; }
    void ShowCurves(bool show) { mShowCurves = show; }
    /// Moves the edge between lanes and curves.
    void SetCurvesTop(int y) { mWantedCurvesHeight = mSize.y - y; }
    /// What the line and the tag of the current frame cover.
    wxRect GetCursorRect(const TimelineTheme_cls& theme) const;

    TimelineRuler_cls mRuler;
    TimelineLanes_cls mLanes;
    TimelineCurves_cls mCurves;
    /// The box that selects keys, empty for none; over lanes or curves.
    wxRect mBox;

  private:
    int GetCurvesHeight() const { return mSize.y - mRulerHeight - mLanesHeight; }
    void DrawCursor(wxGraphicsContext& gc, const TimelineTheme_cls& theme) const;
    void DrawBox(wxGraphicsContext& gc, const TimelineTheme_cls& theme) const;

    TimelineModel_cls& mModel;
    wxSize mSize{1, 1};
    int mNamesWidth = 0;
    int mRulerHeight = 0;
    int mLanesHeight = 0;
    int mWantedNamesWidth = 0;    ///< 0 for the usual
    int mWantedCurvesHeight = 0;  ///< 0 for the usual
    bool mShowCurves = false;
};
