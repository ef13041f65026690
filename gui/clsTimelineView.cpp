#include "gui/clsTimelineView.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kEdge = 3;         // pixels beside an edge that grip it
constexpr int kUsualNames = 15;  // row heights
constexpr int kLeastNames = 5;
constexpr double kUsualCurves = 0.45;  // of the height under the ruler

}  // namespace

void TimelineView_cls::SetLayout(wxSize size, const TimelineTheme_cls& theme) {
    mSize = {std::max(size.x, 1), std::max(size.y, 1)};
    const int usual = theme.rowHeight * kUsualNames;
    const int least = theme.rowHeight * kLeastNames;
    mNamesWidth = std::clamp(mWantedNamesWidth > 0 ? mWantedNamesWidth : usual, std::min(least, mSize.x / 2),
                             std::max(least, mSize.x / 2));
    mRulerHeight = theme.rulerHeight;
    const int under = std::max(mSize.y - mRulerHeight, 0);
    int curves = 0;
    if (mShowCurves) {
        curves = mWantedCurvesHeight > 0 ? mWantedCurvesHeight : static_cast<int>(under * kUsualCurves);
        curves =
            std::clamp(curves, std::min(2 * theme.rowHeight, under), std::max(under - theme.rowHeight, 0));
    }
    mLanesHeight = under - curves;
    mModel.mScale.SetSize(mSize.x - mNamesWidth, mModel.mTimeCtrl.GetMaxFrame());
    mLanes.SetSize(mLanesHeight, theme);
    mCurves.SetSize(std::max(curves, 1));
}

TimelineView_cls::Area TimelineView_cls::FindArea(wxPoint place) const {
    const bool right = place.x >= mNamesWidth;
    if (place.y < mRulerHeight) return right ? Area::Ruler : Area::Corner;
    if (std::abs(place.x - mNamesWidth) <= kEdge) return Area::NamesEdge;
    const int curvesTop = mRulerHeight + mLanesHeight;
    if (mShowCurves && std::abs(place.y - curvesTop) <= kEdge) return Area::CurvesEdge;
    if (mShowCurves && place.y > curvesTop) return right ? Area::Curves : Area::CurveValues;
    return right ? Area::Tracks : Area::Names;
}

wxRect TimelineView_cls::GetCursorRect(const TimelineTheme_cls& theme) const {
    const int x = mNamesWidth + static_cast<int>(std::lround(mModel.mScale.ToX(mModel.GetCursorFrame())));
    const int half = 3 * theme.rowHeight;  // the tag holds ten digits
    return {x - half, 0, 2 * half, mSize.y};
}

// Drawing

void TimelineView_cls::Draw(wxGraphicsContext& gc, const TimelineTheme_cls& theme, const wxRect& clip) const {
    const int from = std::max(ToTrackX(clip.GetLeft()) - 1, 0);
    const int to = ToTrackX(clip.GetRight()) + 1;
    if (to > from) {
        gc.PushState();
        gc.Clip(mNamesWidth, 0, mSize.x - mNamesWidth, mSize.y);
        gc.Translate(mNamesWidth, mRulerHeight);
        gc.PushState();
        gc.Clip(0.0, 0.0, mSize.x, mLanesHeight);
        mLanes.DrawTracks(gc, theme, from, to);
        gc.PopState();
        if (mShowCurves) {
            gc.PushState();
            gc.Translate(0.0, mLanesHeight);
            gc.Clip(0.0, 0.0, mSize.x, GetCurvesHeight());
            mCurves.Draw(gc, theme, from, to);
            gc.PopState();
        }
        gc.Translate(0.0, -mRulerHeight);
        mRuler.Draw(gc, theme, from, to);
        DrawCursor(gc, theme);
        gc.PopState();
    }
    if (clip.GetLeft() <= mNamesWidth) {
        gc.PushState();
        gc.SetPen(*wxTRANSPARENT_PEN);
        gc.SetBrush(wxBrush(theme.panel));
        gc.DrawRectangle(0.0, 0.0, mNamesWidth, mRulerHeight);
        gc.Translate(0.0, mRulerHeight);
        gc.PushState();
        gc.Clip(0.0, 0.0, mNamesWidth, mLanesHeight);
        mLanes.DrawNames(gc, theme, mNamesWidth);
        gc.PopState();
        if (mShowCurves) {
            gc.Translate(0.0, mLanesHeight);
            gc.Clip(0.0, 0.0, mNamesWidth, GetCurvesHeight());
            mCurves.DrawValues(gc, theme, mNamesWidth);
        }
        gc.PopState();
    }
    gc.SetPen(wxPen(theme.line));
    gc.StrokeLine(mNamesWidth - 0.5, 0.0, mNamesWidth - 0.5, mSize.y);
    gc.StrokeLine(0.0, mRulerHeight - 0.5, mNamesWidth, mRulerHeight - 0.5);
    if (mShowCurves) {
        const double y = mRulerHeight + mLanesHeight + 0.5;
        gc.StrokeLine(0.0, y, mSize.x, y);
    }
    DrawBox(gc, theme);
}

void TimelineView_cls::DrawCursor(wxGraphicsContext& gc, const TimelineTheme_cls& theme) const {
    const double x = std::round(mModel.mScale.ToX(mModel.GetCursorFrame())) + 0.5;
    gc.SetPen(wxPen(theme.cursor));
    gc.StrokeLine(x, 0.0, x, mSize.y);
    TimelineRuler_cls::DrawCursorTag(gc, theme, mModel);
}

void TimelineView_cls::DrawBox(wxGraphicsContext& gc, const TimelineTheme_cls& theme) const {
    if (mBox.IsEmpty()) return;
    const wxColour& c = theme.workArea;
    gc.SetPen(wxPen(c));
    gc.SetBrush(wxBrush(wxColour(c.Red(), c.Green(), c.Blue(), 40)));
    gc.DrawRectangle(mBox.x + 0.5, mBox.y + 0.5, mBox.width, mBox.height);
}
