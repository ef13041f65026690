#pragma once

#include <optional>

#include "gui/clsTimelineModel.h"
#include "gui/clsTimelineTheme.h"

/// The curves of the current row: value over time for each of its components, with the keys on them.
/// The height shows what is in sight, with some room; it is held while keys are dragged.
/// Owned by the timeline's canvas. Threads: GUI thread. Units: pixels from the top left corner of the curves.
class TimelineCurves_cls {
  public:
    explicit TimelineCurves_cls(TimelineModel_cls& model) : mModel(model) {}

    void SetSize(int height) { mHeight = height; }
    void Draw(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int fromX, int toX) const;
    /// The values beside the curves, up to the right end of a width.
    void DrawValues(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int width) const;
    /// Takes the values in sight anew.
    void FitValues();

    struct Hit {
        Parameters_cls* parameter;
        double time;
        double value;
    };
    /// The key at a place.
    std::optional<Hit> FindKey(const TimelineTheme_cls& theme, int x, int y) const;
    void SelectBox(wxPoint from, wxPoint to);
    double ToValue(double y) const;

  private:
    struct Curve {
        const Parameters_cls* parameter;
        int component;
    };
    std::vector<Curve> GetCurves() const;
    TimelineKeys_cls::Lane GetAnimated() const;
    double ToY(double value) const;
    void DrawCurve(wxGraphicsContext& gc, const TimelineTheme_cls& theme, const Curve& curve, int fromX,
                   int toX) const;
    void DrawKeys(wxGraphicsContext& gc, const TimelineTheme_cls& theme, const Curve& curve, int fromX,
                  int toX) const;

    TimelineModel_cls& mModel;
    int mHeight = 1;
    double mLow = 0.0;
    double mHigh = 1.0;
};
