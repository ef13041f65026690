#pragma once

#include <optional>

#include "gui/clsTimelineModel.h"
#include "gui/clsTimelineTheme.h"

/// The ruler over the tracks: frame numbers, on which the mouse scrubs, and under them the bars of the work
/// area and the active area, dragged by their ends or as a whole. Each drag is one step of the undo list.
/// Owned by the timeline's canvas. Threads: GUI thread. Units: pixels from the ruler's top left corner.
class TimelineRuler_cls {
  public:
    enum class Part { Frames, WorkFirst, WorkLast, WorkAll, ActiveFirst, ActiveLast, ActiveAll };

    explicit TimelineRuler_cls(TimelineModel_cls& model) : mModel(model) {}

    /// Draws what lies between two places.
    void Draw(wxGraphicsContext& gc, const TimelineTheme_cls& theme, double fromX, double toX) const;
    Part HitTest(const TimelineTheme_cls& theme, double x, double y) const;
    static const char* GetTip(Part part);

    void Press(Part part, double x);
    void Drag(double x);
    void Release();
    /// Takes the drag back.
    void Cancel();
    bool IsDragging() const { return mPart.has_value(); }

    static void DrawCursorTag(wxGraphicsContext& gc, const TimelineTheme_cls& theme,
                              const TimelineModel_cls& model);

  private:
    void DrawBar(wxGraphicsContext& gc, double top, double height, FrameRange area,
                 const wxColour& colour) const;
    void DrawFrames(wxGraphicsContext& gc, const TimelineTheme_cls& theme, double fromX, double toX) const;
    void SetArea(TimeValue first, TimeValue last, FrameRange area);

    TimelineModel_cls& mModel;
    std::optional<Part> mPart;
    int mPressedFrame = 0;
    FrameRange mAreaBefore;
};
