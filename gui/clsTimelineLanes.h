#pragma once

#include <optional>

#include "gui/clsTimelineMarks.h"
#include "gui/clsTimelineTheme.h"

/// The lanes under the ruler: at the left the names as a tree, at the right the tracks with their keys.
/// Draws them and tells what is under the mouse. Owned by the timeline's canvas. Threads: GUI thread.
/// Units: pixels; y from the top of the lanes, x from the left end of the names or of the tracks.
class TimelineLanes_cls {
  public:
    explicit TimelineLanes_cls(TimelineModel_cls& model) : mModel(model) {}

    /// First pixel of the rows that is shown.
    int GetScroll() const { return mScroll; }
    void SetSize(int height, const TimelineTheme_cls& theme);
    void SetScroll(int scroll, const TimelineTheme_cls& theme);
    void ScrollTo(int row, const TimelineTheme_cls& theme);
    int GetRowsHeight(const TimelineTheme_cls& theme) const;

    void DrawNames(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int width) const;
    void DrawTracks(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int fromX, int toX) const;

    /// Row at a height, -1 for none.
    int FindRow(int y, const TimelineTheme_cls& theme) const;
    enum class NamePart { Name, Expander, Animated };
    NamePart FindNamePart(const TimelineTheme_cls& theme, int row, int x, int width) const;
    /// Time of the key at a place in a row.
    std::optional<double> FindKey(const TimelineTheme_cls& theme, int row, int x) const;
    /// Selects the keys in a box, its corners in any order.
    void SelectBox(const TimelineTheme_cls& theme, wxPoint from, wxPoint to);

  private:
    struct Visible {
        int first;
        int last;
    };
    Visible GetVisible(const TimelineTheme_cls& theme) const;
    int GetTop(int row, const TimelineTheme_cls& theme) const { return row * theme.rowHeight - mScroll; }
    void DrawName(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int number, int width) const;
    void DrawKeys(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int number, int fromX,
                  int toX) const;

    TimelineModel_cls& mModel;
    int mHeight = 0;
    int mScroll = 0;
};
