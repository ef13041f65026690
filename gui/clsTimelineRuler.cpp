#include "gui/clsTimelineRuler.h"

#include <algorithm>
#include <cmath>

#include "timeline/clsUndoManager.h"

namespace {

constexpr double kLabelPixels = 60.0;
constexpr double kEndGrip = 5.0;  // pixels beside an end that grip it

double NumbersHeight(const TimelineTheme_cls& theme) {
    return theme.rulerHeight - 2.0 * theme.barHeight - 2.0;
}

bool IsOfWorkArea(TimelineRuler_cls::Part part) {
    using Part = TimelineRuler_cls::Part;
    return part == Part::WorkFirst || part == Part::WorkLast || part == Part::WorkAll;
}

}  // namespace

// Drawing

void TimelineRuler_cls::Draw(wxGraphicsContext& gc, const TimelineTheme_cls& theme, double fromX,
                             double toX) const {
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(theme.panel));
    gc.DrawRectangle(fromX, 0.0, toX - fromX, theme.rulerHeight);
    DrawFrames(gc, theme, fromX, toX);

    const TimeSettings_cls& settings = mModel.mTimeCtrl.GetSettings();
    const double top = NumbersHeight(theme);
    DrawBar(gc, top, theme.barHeight - 1.0, settings.GetWorkArea(), theme.workArea);
    DrawBar(gc, top + theme.barHeight, theme.barHeight - 2.0, settings.GetActiveArea(), theme.activeArea);

    gc.SetPen(wxPen(theme.line));
    gc.StrokeLine(fromX, theme.rulerHeight - 0.5, toX, theme.rulerHeight - 0.5);
}

void TimelineRuler_cls::DrawFrames(wxGraphicsContext& gc, const TimelineTheme_cls& theme, double fromX,
                                   double toX) const {
    const TimelineScale_cls& scale = mModel.mScale;
    const double bottom = NumbersHeight(theme) - 1.0;
    const auto eachFrame = [&](int spacing, const auto& draw) {
        const double from = std::max(scale.ToFrame(fromX - kLabelPixels), 0.0);
        const double to =
            std::min(scale.ToFrame(toX + kLabelPixels), static_cast<double>(scale.GetMaxFrame()));
        for (double frame = std::floor(from / spacing) * spacing; frame <= to; frame += spacing) draw(frame);
    };
    gc.SetPen(wxPen(theme.line));
    eachFrame(scale.GetTickSpacing(), [&](double frame) {
        const double x = std::round(scale.ToX(frame)) + 0.5;
        gc.StrokeLine(x, bottom - 3.0, x, bottom);
    });
    gc.SetFont(theme.smallFont, theme.faintText);
    gc.SetPen(wxPen(theme.faintText));
    eachFrame(scale.GetLabelSpacing(kLabelPixels), [&](double frame) {
        const double x = std::round(scale.ToX(frame)) + 0.5;
        gc.StrokeLine(x, bottom - 5.0, x, bottom);
        const wxString text = wxString::Format("%.0f", frame);
        double width = 0.0;
        double height = 0.0;
        gc.GetTextExtent(text, &width, &height);
        gc.DrawText(text, std::round(x - width / 2.0), 1.0);
    });
}

void TimelineRuler_cls::DrawBar(wxGraphicsContext& gc, double top, double height, FrameRange area,
                                const wxColour& colour) const {
    const double left = mModel.mScale.ToX(area.first);
    const double right = mModel.mScale.ToX(area.last);
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(wxColour(colour.Red(), colour.Green(), colour.Blue(), 110)));
    gc.DrawRectangle(left, top, right - left, height);
    gc.SetBrush(wxBrush(colour));
    gc.DrawRoundedRectangle(left - 2.0, top, 4.0, height, 1.5);
    gc.DrawRoundedRectangle(right - 2.0, top, 4.0, height, 1.5);
}

void TimelineRuler_cls::DrawCursorTag(wxGraphicsContext& gc, const TimelineTheme_cls& theme,
                                      const TimelineModel_cls& model) {
    const wxString text = wxString::Format("%d", model.mTimeCtrl.GetFrame());
    gc.SetFont(theme.smallFont, *wxWHITE);
    double width = 0.0;
    double height = 0.0;
    gc.GetTextExtent(text, &width, &height);
    const double x = std::round(model.mScale.ToX(model.GetCursorFrame()));
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(theme.cursor));
    gc.DrawRoundedRectangle(x - width / 2.0 - 4.0, 0.0, width + 9.0, height + 2.0, 2.5);
    gc.DrawText(text, x - width / 2.0 + 0.5, 1.0);
}

// Mouse

TimelineRuler_cls::Part TimelineRuler_cls::HitTest(const TimelineTheme_cls& theme, double x, double y) const {
    const double top = NumbersHeight(theme);
    if (y < top) return Part::Frames;
    const bool work = y < top + theme.barHeight;
    const TimeSettings_cls& settings = mModel.mTimeCtrl.GetSettings();
    const FrameRange area = work ? settings.GetWorkArea() : settings.GetActiveArea();
    const double left = mModel.mScale.ToX(area.first);
    const double right = mModel.mScale.ToX(area.last);
    // Where both ends are one, the mouse takes the one that it comes from.
    const bool nearLast = std::abs(x - right) <= kEndGrip && (x >= right || x - left > right - x);
    if (nearLast) return work ? Part::WorkLast : Part::ActiveLast;
    if (std::abs(x - left) <= kEndGrip) return work ? Part::WorkFirst : Part::ActiveFirst;
    if (x > left && x < right) return work ? Part::WorkAll : Part::ActiveAll;
    return Part::Frames;
}

const char* TimelineRuler_cls::GetTip(Part part) {
    switch (part) {
        case Part::Frames:
            return "Frames. Drag to move through the scene, turn the wheel to zoom, Shift and wheel or "
                   "middle "
                   "drag to pan";
        case Part::WorkFirst:
        case Part::WorkLast:
        case Part::WorkAll:
            return "Work area: the frames that are played and rendered. Drag an end, or the bar";
        default:
            return "Active area: the part of the scene in use. Drag an end, or the bar; double click for the "
                   "whole scene";
    }
}

void TimelineRuler_cls::Press(Part part, double x) {
    const TimeSettings_cls& settings = mModel.mTimeCtrl.GetSettings();
    mPart = part;
    mPressedFrame = static_cast<int>(std::lround(mModel.mScale.ToFrame(x)));
    mAreaBefore = IsOfWorkArea(part) ? settings.GetWorkArea() : settings.GetActiveArea();
    const char* name = part == Part::Frames ? "Go to Frame"
                       : IsOfWorkArea(part) ? "Work Area"
                                            : "Active Area";
    GCUndoList.BeginDrag(name);
    if (part == Part::Frames) Drag(x);
}

void TimelineRuler_cls::Drag(double x) {
    if (!mPart) return;
    TimeCtrl_cls& timeCtrl = mModel.mTimeCtrl;
    const int maxFrame = timeCtrl.GetMaxFrame();
    const int frame =
        static_cast<int>(std::lround(std::clamp<double>(mModel.mScale.ToFrame(x), 0.0, maxFrame)));
    FrameRange area = mAreaBefore;
    switch (*mPart) {
        case Part::Frames: {
            // Scrubbing keeps to the frames that playing shows.
            const int shown = timeCtrl.RoundFrame(frame);
            if (shown == timeCtrl.GetFrame() && timeCtrl.GetStep() == 0) return;
            GCUndoList.RestartDrag();
            timeCtrl.SetFrameCommand(shown);
            timeCtrl.SetStepCommand(0);
            GCUndoList.ExecUpdate();
            return;
        }
        case Part::WorkFirst:
        case Part::ActiveFirst:
            area.first = std::min(frame, area.last);
            break;
        case Part::WorkLast:
        case Part::ActiveLast:
            area.last = std::max(frame, area.first);
            break;
        case Part::WorkAll:
        case Part::ActiveAll: {
            const int moved = static_cast<int>(std::lround(mModel.mScale.ToFrame(x))) - mPressedFrame;
            const int offset = std::clamp(moved, -area.first, maxFrame - area.last);
            area = {area.first + offset, area.last + offset};
            break;
        }
    }
    const bool work = IsOfWorkArea(*mPart);
    GCUndoList.RestartDrag();
    SetArea(work ? TimeValue::WorkAreaMin : TimeValue::ActiveAreaMin,
            work ? TimeValue::WorkAreaMax : TimeValue::ActiveAreaMax, area);
    GCUndoList.ExecUpdate();
}

void TimelineRuler_cls::SetArea(TimeValue first, TimeValue last, FrameRange area) {
    // Either end is limited by the other, so the one that makes room goes first.
    const bool forward = area.first > mAreaBefore.first;
    if (forward) mModel.mTimeCtrl.SetValueCommand(last, area.last);
    mModel.mTimeCtrl.SetValueCommand(first, area.first);
    if (!forward) mModel.mTimeCtrl.SetValueCommand(last, area.last);
}

void TimelineRuler_cls::Release() {
    if (!mPart) return;
    mPart.reset();
    GCUndoList.EndDrag();
}

void TimelineRuler_cls::Cancel() {
    if (!mPart) return;
    mPart.reset();
    GCUndoList.CancelDrag();
}
