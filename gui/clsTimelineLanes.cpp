#include "gui/clsTimelineLanes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kLaneGrip = 2;  // pixels beside a key that still take it

bool IsAnimated(const TimelineKeys_cls::Lane& lane) {
    return std::any_of(lane.begin(), lane.end(),
                       [](const Parameters_cls* parameter) { return parameter->IsTimeDependent(); });
}

double AnimatedX(const TimelineTheme_cls& theme, int width) {
    return width - theme.keySize * 2.5;
}

}  // namespace

// Scrolling

int TimelineLanes_cls::GetRowsHeight(const TimelineTheme_cls& theme) const {
    return static_cast<int>(mModel.mTree.GetRows().size()) * theme.rowHeight;
}

void TimelineLanes_cls::SetSize(int height, const TimelineTheme_cls& theme) {
    mHeight = height;
    SetScroll(mScroll, theme);
}

void TimelineLanes_cls::SetScroll(int scroll, const TimelineTheme_cls& theme) {
    mScroll = std::clamp(scroll, 0, std::max(0, GetRowsHeight(theme) - mHeight));
}

void TimelineLanes_cls::ScrollTo(int row, const TimelineTheme_cls& theme) {
    if (row < 0) return;
    const int top = row * theme.rowHeight;
    SetScroll(std::clamp(mScroll, top + theme.rowHeight - mHeight, top), theme);
}

int TimelineLanes_cls::FindRow(int y, const TimelineTheme_cls& theme) const {
    const int row = y + mScroll < 0 ? -1 : (y + mScroll) / theme.rowHeight;
    return y < mHeight && mModel.mTree.GetRow(row) ? row : -1;
}

TimelineLanes_cls::Visible TimelineLanes_cls::GetVisible(const TimelineTheme_cls& theme) const {
    const int count = static_cast<int>(mModel.mTree.GetRows().size());
    return {mScroll / theme.rowHeight, std::min((mScroll + mHeight) / theme.rowHeight, count - 1)};
}

// Names

void TimelineLanes_cls::DrawNames(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int width) const {
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(theme.panel));
    gc.DrawRectangle(0.0, 0.0, width, mHeight);
    const Visible visible = GetVisible(theme);
    for (int row = visible.first; row <= visible.last; ++row) DrawName(gc, theme, row, width);
}

void TimelineLanes_cls::DrawName(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int number,
                                 int width) const {
    const TimelineTree_cls::Row& row = *mModel.mTree.GetRow(number);
    const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(row);
    const double top = GetTop(number, theme);
    const double middle = top + theme.rowHeight / 2.0;
    if (number == mModel.GetCurrentNumber()) {
        gc.SetPen(*wxTRANSPARENT_PEN);
        gc.SetBrush(wxBrush(theme.current));
        gc.DrawRectangle(0.0, top, width, theme.rowHeight);
    }

    const double left = theme.indent * (row.depth + 0.3);
    if (row.expandable) {
        const double x = left + theme.indent / 2.0;
        const double s = theme.keySize * 0.75;
        wxGraphicsPath arrow = gc.CreatePath();
        if (row.expanded) {
            arrow.MoveToPoint(x - s, middle - s * 0.6);
            arrow.AddLineToPoint(x + s, middle - s * 0.6);
            arrow.AddLineToPoint(x, middle + s * 0.8);
        } else {
            arrow.MoveToPoint(x - s * 0.6, middle - s);
            arrow.AddLineToPoint(x - s * 0.6, middle + s);
            arrow.AddLineToPoint(x + s * 0.8, middle);
        }
        gc.SetPen(*wxTRANSPARENT_PEN);
        gc.SetBrush(wxBrush(theme.faintText));
        gc.FillPath(arrow);
    }

    // Filled for what is animated, hollow for constants.
    wxGraphicsPath diamond = gc.CreatePath();
    theme.AddKey(diamond, AnimatedX(theme, width), middle, KeyFrame_cls::kLinear);
    const bool animated = IsAnimated(lane);
    gc.SetPen(wxPen(animated ? theme.key : theme.line));
    gc.SetBrush(animated ? wxBrush(theme.key) : *wxTRANSPARENT_BRUSH);
    gc.DrawPath(diamond);

    const double right = AnimatedX(theme, width) - theme.keySize * 2.5;
    const double textLeft = left + theme.indent * 1.2;
    double textWidth = 0.0;
    double textHeight = 0.0;
    const wxColour colour = row.component >= 0 ? theme.GetComponentColour(row.component) : theme.text;
    gc.SetFont(theme.font, colour);
    const wxString name = row.GetName();
    gc.GetTextExtent(name, &textWidth, &textHeight);
    gc.PushState();
    gc.Clip(textLeft, top, std::max(right - textLeft, 1.0), theme.rowHeight);
    gc.DrawText(name, textLeft, middle - textHeight / 2.0);

    if (lane.size() == 1) {
        const double value =
            lane.front()->Evaluate(Parameters_cls::msCurrentDoubleIndex, Parameters_cls::msResolution);
        const wxString text = wxString::Format("%.5g", value);
        double numberWidth = 0.0;
        gc.SetFont(theme.smallFont, theme.faintText);
        gc.GetTextExtent(text, &numberWidth, &textHeight);
        const double x = right - numberWidth;
        if (x > textLeft + textWidth + theme.keySize) gc.DrawText(text, x, middle - textHeight / 2.0);
    }
    gc.PopState();
}

TimelineLanes_cls::NamePart TimelineLanes_cls::FindNamePart(const TimelineTheme_cls& theme, int row, int x,
                                                            int width) const {
    const TimelineTree_cls::Row* found = mModel.mTree.GetRow(row);
    if (!found) return NamePart::Name;
    if (found->expandable && x < theme.indent * (found->depth + 1.5)) return NamePart::Expander;
    return std::abs(x - AnimatedX(theme, width)) < theme.keySize * 2.5 ? NamePart::Animated : NamePart::Name;
}

// Tracks

void TimelineLanes_cls::DrawTracks(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int fromX,
                                   int toX) const {
    const TimelineScale_cls& scale = mModel.mScale;
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(theme.outside));
    gc.DrawRectangle(fromX, 0.0, toX - fromX, mHeight);
    const double begin = std::max<double>(fromX, scale.ToX(0.0));
    const double end = std::min<double>(toX, scale.ToX(scale.GetMaxFrame()) + 1.0);
    gc.SetBrush(wxBrush(theme.background));
    if (end > begin) gc.DrawRectangle(begin, 0.0, end - begin, mHeight);

    const Visible visible = GetVisible(theme);
    if (const int current = mModel.GetCurrentNumber(); current >= visible.first && current <= visible.last) {
        gc.SetBrush(wxBrush(theme.current));
        gc.DrawRectangle(fromX, GetTop(current, theme), toX - fromX, theme.rowHeight);
    }

    gc.SetPen(wxPen(theme.grid));
    const int spacing = scale.GetLabelSpacing(60.0);
    for (double frame = std::max(0.0, std::floor(scale.ToFrame(fromX) / spacing) * spacing);
         frame <= std::min<double>(scale.ToFrame(toX), scale.GetMaxFrame()); frame += spacing) {
        const double x = std::round(scale.ToX(frame)) + 0.5;
        gc.StrokeLine(x, 0.0, x, mHeight);
    }
    for (int row = visible.first; row <= visible.last; ++row) {
        const double y = GetTop(row, theme) + theme.rowHeight - 0.5;
        gc.SetPen(wxPen(theme.grid));
        gc.StrokeLine(fromX, y, toX, y);
        DrawKeys(gc, theme, row, fromX, toX);
    }
}

void TimelineLanes_cls::DrawKeys(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int number, int fromX,
                                 int toX) const {
    const TimelineTree_cls::Row& row = *mModel.mTree.GetRow(number);
    const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(row);
    const int reach = 2 * theme.keySize;
    const auto marks = TimelineMarks_cls::Gather(mModel, lane, fromX - reach, toX + reach);
    const double y = GetTop(number, theme) + theme.rowHeight / 2.0;

    // From the first key to the last one the lane moves.
    double first = 1.0;
    double last = 0.0;
    for (const Parameters_cls* parameter : lane) {
        if (!parameter->IsTimeDependent() || parameter->GetKeys().empty()) continue;
        first = std::min(first, parameter->GetKeys().front().mTime);
        last = std::max(last, parameter->GetKeys().back().mTime);
    }
    if (last > first) {
        gc.SetPen(wxPen(theme.line));
        gc.StrokeLine(std::max<double>(mModel.ToX(first), fromX), y, std::min<double>(mModel.ToX(last), toX),
                      y);
    }

    gc.SetPen(*wxTRANSPARENT_PEN);
    for (const auto& run : TimelineMarks_cls::GetRuns(marks, theme.keySize)) {
        const TimelineMarks_cls::Mark& mark = marks[run.first];
        gc.SetBrush(wxBrush(mark.selected ? theme.selectedKey : theme.key));
        const double s = theme.keySize;
        if (run.last > run.first) {
            const double width = marks[run.last].x - mark.x + s;
            gc.DrawRoundedRectangle(mark.x - s / 2.0, y - s * 0.6, width, s * 1.2, s * 0.4);
            continue;
        }
        wxGraphicsPath path = gc.CreatePath();
        theme.AddKey(path, mark.x + 0.5, y, mark.mixed ? KeyFrame_cls::kLinear : mark.type);
        gc.FillPath(path);
    }
}

std::optional<double> TimelineLanes_cls::FindKey(const TimelineTheme_cls& theme, int row, int x) const {
    const TimelineTree_cls::Row* found = mModel.mTree.GetRow(row);
    if (!found) return std::nullopt;
    return TimelineKeys_cls::FindKey(mModel.mTree.GetParameters(*found), mModel.ToTime(x),
                                     mModel.ToTimeRange(theme.keySize + kLaneGrip));
}

void TimelineLanes_cls::SelectBox(const TimelineTheme_cls& theme, wxPoint from, wxPoint to) {
    const auto [left, right] = std::minmax(from.x, to.x);
    const auto [top, bottom] = std::minmax(from.y, to.y);
    const int rows = static_cast<int>(mModel.mTree.GetRows().size());
    for (int row = 0; row < rows; ++row) {
        const double middle = GetTop(row, theme) + theme.rowHeight / 2.0;
        if (middle < top || middle > bottom) continue;
        TimelineKeys_cls::SelectRegion(mModel.mTree.GetParameters(*mModel.mTree.GetRow(row)),
                                       mModel.ToTime(left), mModel.ToTime(right));
    }
}
