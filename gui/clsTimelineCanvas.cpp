#include "gui/clsTimelineCanvas.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "gui/clsKeyFrameGUI.h"
#include "gui/clsTimelineMenu.h"
#include "seam/clsEventSink.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr int kDragDistance = 3;   // pixels from which a press is a drag
constexpr double kZoomStep = 1.2;  // of one turn of the wheel
constexpr int kLargeMove = 10;     // frames

}  // namespace

TimelineCanvas_cls::TimelineCanvas_cls(wxWindow* parent, TimelineModel_cls& model)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxVSCROLL),
      mModel(model),
      mView(model),
      mTheme(*this) {
    SetName("timeline");
    // Everything is painted, and GTK shows a painting only when it is whole: nothing flickers.
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize({mTheme.rowHeight * 10, mTheme.rulerHeight + 2 * mTheme.rowHeight});

    Bind(wxEVT_PAINT, &TimelineCanvas_cls::OnPaint, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { RefreshAll(); });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        RefreshAll();
        event.Skip();
    });
    for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(type, [this](wxFocusEvent& event) {
            Refresh();
            event.Skip();
        });
    }
    for (const auto& type : {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
                             wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
                             wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
        Bind(type, &TimelineCanvas_cls::OnScroll, this);
    }
    Bind(wxEVT_LEFT_DOWN, &TimelineCanvas_cls::OnLeftDown, this);
    Bind(wxEVT_LEFT_DCLICK, &TimelineCanvas_cls::OnDoubleClick, this);
    Bind(wxEVT_MIDDLE_DOWN, &TimelineCanvas_cls::OnMiddleDown, this);
    Bind(wxEVT_MOTION, &TimelineCanvas_cls::OnMotion, this);
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { mHover = wxDefaultPosition; });
    Bind(wxEVT_LEFT_UP, &TimelineCanvas_cls::OnUp, this);
    Bind(wxEVT_MIDDLE_UP, &TimelineCanvas_cls::OnUp, this);
    Bind(wxEVT_MOUSEWHEEL, &TimelineCanvas_cls::OnWheel, this);
    Bind(wxEVT_CONTEXT_MENU, &TimelineCanvas_cls::OnContextMenu, this);
    // Before the keys of the main window: arrows move keys where some are selected.
    Bind(wxEVT_CHAR_HOOK, &TimelineCanvas_cls::OnKey, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &TimelineCanvas_cls::OnCaptureLost, this);
}

// Showing

void TimelineCanvas_cls::Prepare() {
    mTheme = TimelineTheme_cls(*this);
    mModel.mTree.Update();
    mView.SetLayout(GetClientSize(), mTheme);
}

void TimelineCanvas_cls::RefreshAll() {
    Prepare();
    UpdateScrollbar();
    if (mView.IsShowingCurves() && mGesture != Gesture::CurveKeys) mView.mCurves.FitValues();
    Refresh();
    // What lies under the mouse may have gone or come.
    if (mGesture == Gesture::None && mHover != wxDefaultPosition) ShowHover(mHover);
}

void TimelineCanvas_cls::RefreshCursor() {
    // Whoever drags looks at what he has in sight.
    if (mGesture == Gesture::None && mModel.mScale.Follow(mModel.GetCursorFrame())) {
        RefreshAll();
        return;
    }
    wxRect rect = mView.GetCursorRect(mTheme);
    const int x = rect.x;
    RefreshRect(rect);
    rect.x = std::exchange(mCursorX, x);
    if (rect.x != x) RefreshRect(rect);
    // Values beside the names; while playing they would only flicker by.
    if (!mModel.mTimeCtrl.IsPlaying()) RefreshRect({0, 0, mView.GetNamesWidth(), GetClientSize().y});
}

void TimelineCanvas_cls::ShowCurves(bool show) {
    mView.ShowCurves(show);
    RefreshAll();
}

void TimelineCanvas_cls::OnPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    Prepare();
    const std::unique_ptr<wxGraphicsContext> gc(wxGraphicsContext::Create(dc));
    if (!gc) return;
    mCursorX = mView.GetCursorRect(mTheme).x;
    mView.Draw(*gc, mTheme, GetUpdateRegion().GetBox());
}

void TimelineCanvas_cls::UpdateScrollbar() {
    const int rows = mView.mLanes.GetRowsHeight(mTheme);
    const int height = mView.GetLanesHeight();
    if (GetScrollRange(wxVERTICAL) != rows || GetScrollThumb(wxVERTICAL) != height ||
        GetScrollPos(wxVERTICAL) != mView.mLanes.GetScroll()) {
        SetScrollbar(wxVERTICAL, mView.mLanes.GetScroll(), height, rows);
    }
}

void TimelineCanvas_cls::OnScroll(wxScrollWinEvent& event) {
    const wxEventType type = event.GetEventType();
    int scroll = mView.mLanes.GetScroll();
    if (type == wxEVT_SCROLLWIN_TOP) scroll = 0;
    if (type == wxEVT_SCROLLWIN_BOTTOM) scroll = mView.mLanes.GetRowsHeight(mTheme);
    if (type == wxEVT_SCROLLWIN_LINEUP) scroll -= mTheme.rowHeight;
    if (type == wxEVT_SCROLLWIN_LINEDOWN) scroll += mTheme.rowHeight;
    if (type == wxEVT_SCROLLWIN_PAGEUP) scroll -= mView.GetLanesHeight();
    if (type == wxEVT_SCROLLWIN_PAGEDOWN) scroll += mView.GetLanesHeight();
    if (type == wxEVT_SCROLLWIN_THUMBTRACK || type == wxEVT_SCROLLWIN_THUMBRELEASE)
        scroll = event.GetPosition();
    mView.mLanes.SetScroll(scroll, mTheme);
    RefreshAll();
}

// Pressing

void TimelineCanvas_cls::Begin(Gesture gesture, wxPoint place) {
    mGesture = gesture;
    mPressed = mLast = place;
    mPressedTime = mModel.ToTime(mView.ToTrackX(place.x));
    mMoved = false;
    if (!HasCapture()) CaptureMouse();
}

void TimelineCanvas_cls::OnLeftDown(wxMouseEvent& event) {
    using Area = TimelineView_cls::Area;
    SetFocus();
    if (mGesture != Gesture::None) return;
    Prepare();
    const wxPoint place = event.GetPosition();
    switch (mView.FindArea(place)) {
        case Area::Corner:
        case Area::CurveValues:
            break;
        case Area::Ruler:
            Begin(Gesture::Ruler, place);
            mView.mRuler.Press(mView.mRuler.HitTest(mTheme, mView.ToTrackX(place.x), place.y),
                               mView.ToTrackX(place.x));
            break;
        case Area::NamesEdge:
            Begin(Gesture::NamesEdge, place);
            break;
        case Area::CurvesEdge:
            Begin(Gesture::CurvesEdge, place);
            break;
        case Area::Names:
            PressName(event);
            break;
        case Area::Tracks:
            PressTrack(event);
            break;
        case Area::Curves: {
            const std::optional<Found> key = FindCurveKey(place);
            PressKey(key, event);
            Begin(key ? Gesture::CurveKeys : Gesture::CurveBox, place);
            break;
        }
    }
    RefreshAll();
}

void TimelineCanvas_cls::PressName(wxMouseEvent& event) {
    using Part = TimelineLanes_cls::NamePart;
    const int number = mView.mLanes.FindRow(mView.ToLaneY(event.GetY()), mTheme);
    const TimelineTree_cls::Row* found = mModel.mTree.GetRow(number);
    if (!found) return;
    const TimelineTree_cls::Row row = *found;
    mModel.SetCurrentRow(number);
    const Part part = mView.mLanes.FindNamePart(mTheme, number, event.GetX(), mView.GetNamesWidth());
    if (part == Part::Expander) mModel.mTree.SetExpanded(row, !row.expanded);
    if (part == Part::Animated) {
        const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(row);
        const bool animated = std::any_of(lane.begin(), lane.end(),
                                          [](const auto* parameter) { return parameter->IsTimeDependent(); });
        mModel.mKeys.SetTimeDependent(lane, !animated);
    }
}

std::optional<TimelineCanvas_cls::Found> TimelineCanvas_cls::FindTrackKey(wxPoint place) const {
    const wxPoint inLanes = mView.ToLanes(place);
    const int row = mView.mLanes.FindRow(inLanes.y, mTheme);
    const std::optional<double> time = mView.mLanes.FindKey(mTheme, row, inLanes.x);
    if (!time) return std::nullopt;
    return Found{mModel.mTree.GetParameters(*mModel.mTree.GetRow(row)), *time};
}

std::optional<TimelineCanvas_cls::Found> TimelineCanvas_cls::FindCurveKey(wxPoint place) const {
    const wxPoint inCurves = mView.ToCurves(place);
    const auto hit = mView.mCurves.FindKey(mTheme, inCurves.x, inCurves.y);
    if (!hit) return std::nullopt;
    return Found{{hit->parameter}, hit->time};
}

void TimelineCanvas_cls::PressTrack(wxMouseEvent& event) {
    const int row = mView.mLanes.FindRow(mView.ToLaneY(event.GetY()), mTheme);
    if (row >= 0) mModel.SetCurrentRow(row);
    const std::optional<Found> key = FindTrackKey(event.GetPosition());
    PressKey(key, event);
    Begin(key ? Gesture::Keys : Gesture::Box, event.GetPosition());
}

void TimelineCanvas_cls::PressKey(const std::optional<Found>& key, const wxMouseEvent& event) {
    const bool selected = key && TimelineKeys_cls::IsSelected(key->lane, key->time);
    const bool more = event.ShiftDown() || event.ControlDown();
    // A selected key is pressed to drag all that are; whether it was a mere click shows at the release.
    if (!more && !selected) mModel.mKeys.DeselectAll();
    if (!key) return;
    TimelineKeys_cls::Select(key->lane, key->time, !(event.ControlDown() && selected));
    mGrabbedTime = key->time;
}

void TimelineCanvas_cls::OnMiddleDown(wxMouseEvent& event) {
    if (mGesture == Gesture::None) Begin(Gesture::Pan, event.GetPosition());
}

void TimelineCanvas_cls::OnDoubleClick(wxMouseEvent& event) {
    using Area = TimelineView_cls::Area;
    Prepare();
    const wxPoint place = event.GetPosition();
    const wxPoint inLanes = mView.ToLanes(place);
    const int row = mView.mLanes.FindRow(inLanes.y, mTheme);
    switch (mView.FindArea(place)) {
        case Area::Ruler:
            if (mView.mRuler.HitTest(mTheme, inLanes.x, place.y) == TimelineRuler_cls::Part::ActiveAll)
                mModel.mTimeCtrl.ExpandAACommand();
            break;
        case Area::Names:
            if (const TimelineTree_cls::Row* found = mModel.mTree.GetRow(row); found && found->expandable) {
                mModel.mTree.SetExpanded(TimelineTree_cls::Row(*found), !found->expanded);
            } else {
                ShowKeyDialog(row, Parameters_cls::msCurrentDoubleIndex);
            }
            break;
        case Area::Tracks:
            if (const std::optional<Found> key = FindTrackKey(place)) ShowKeyDialog(row, key->time);
            break;
        case Area::Curves:
            if (const std::optional<Found> key = FindCurveKey(place))
                ShowKeyDialog(mModel.GetCurrentNumber(), key->time);
            break;
        default:
            break;
    }
    RefreshAll();
}

// Dragging

void TimelineCanvas_cls::OnMotion(wxMouseEvent& event) {
    const wxPoint place = event.GetPosition();
    if (mGesture == Gesture::None) {
        mHover = place;
        ShowHover(place);
        return;
    }
    const wxPoint way = place - mPressed;
    if (!mMoved && mGesture != Gesture::Ruler &&
        std::max(std::abs(way.x), std::abs(way.y)) < FromDIP(kDragDistance))
        return;
    DragTo(place);
    mMoved = true;
    mLast = place;
}

void TimelineCanvas_cls::DragTo(wxPoint place) {
    const bool alongTime =
        mGesture == Gesture::Ruler || mGesture == Gesture::Keys || mGesture == Gesture::CurveKeys;
    const int beyond = std::min(mView.ToTrackX(place.x), 0) + std::max(place.x - GetClientSize().x, 0);
    // Where only a part of the scene is in sight, it follows a drag over the edge.
    if (alongTime && beyond != 0 && !mModel.mScale.IsWhole()) mModel.mScale.Pan(-beyond);
    switch (mGesture) {
        case Gesture::None:
            break;
        case Gesture::Ruler:
            mView.mRuler.Drag(mView.ToTrackX(place.x));
            break;
        case Gesture::Keys:
        case Gesture::CurveKeys:
            DragKeys(place);
            break;
        case Gesture::Box:
        case Gesture::CurveBox:
            mView.mBox = wxRect(mPressed, place);
            Refresh();
            break;
        case Gesture::Pan:
            mModel.mScale.Pan(place.x - mLast.x);
            mView.mLanes.SetScroll(mView.mLanes.GetScroll() - (place.y - mLast.y), mTheme);
            RefreshAll();
            break;
        case Gesture::NamesEdge:
            mView.SetNamesWidth(std::max(place.x, 1));
            RefreshAll();
            break;
        case Gesture::CurvesEdge:
            mView.SetCurvesTop(place.y);
            RefreshAll();
            break;
    }
}

void TimelineCanvas_cls::DragKeys(wxPoint place) {
    if (!mModel.mKeys.IsDragging()) mModel.mKeys.BeginDrag(mGrabbedTime);
    const wxPoint way = place - mPressed;
    double valueOffset = 0.0;
    double timeOffset = mModel.ToTime(mView.ToTrackX(place.x)) - mPressedTime;
    if (mGesture == Gesture::CurveKeys) {
        // A small deviation from straight up or straight aside is meant to be none.
        const int slack = FromDIP(2 * kDragDistance);
        if (std::abs(way.x) < slack) timeOffset = 0.0;
        if (std::abs(way.y) >= slack || timeOffset == 0.0)
            valueOffset = mView.mCurves.ToValue(way.y) - mView.mCurves.ToValue(0.0);
    }
    mModel.mKeys.DragTo(mGrabbedTime + timeOffset, valueOffset);
}

void TimelineCanvas_cls::OnUp(wxMouseEvent& event) {
    const bool isPan = mGesture == Gesture::Pan;
    if (mGesture == Gesture::None || isPan != (event.GetEventType() == wxEVT_MIDDLE_UP)) return;
    // A fast hand lets go beyond the last place that was told.
    OnMotion(event);
    const bool keys = mGesture == Gesture::Keys || mGesture == Gesture::CurveKeys;
    if (mMoved && (mGesture == Gesture::Box || mGesture == Gesture::CurveBox)) DragBox(event.GetPosition());
    if (keys && !mMoved && !event.ShiftDown() && !event.ControlDown()) {
        Prepare();
        const std::optional<Found> key =
            mGesture == Gesture::Keys ? FindTrackKey(mPressed) : FindCurveKey(mPressed);
        mModel.mKeys.DeselectAll();
        if (key) TimelineKeys_cls::Select(key->lane, key->time);
    }
    End();
}

void TimelineCanvas_cls::DragBox(wxPoint place) {
    Prepare();
    if (mGesture == Gesture::Box) {
        mView.mLanes.SelectBox(mTheme, mView.ToLanes(mPressed), mView.ToLanes(place));
    } else {
        mView.mCurves.SelectBox(mView.ToCurves(mPressed), mView.ToCurves(place));
    }
}

void TimelineCanvas_cls::End() {
    mView.mRuler.Release();
    mModel.mKeys.EndDrag();
    mGesture = Gesture::None;
    mView.mBox = wxRect();
    if (HasCapture()) ReleaseMouse();
    RefreshAll();
}

void TimelineCanvas_cls::Cancel() {
    mView.mRuler.Cancel();
    mModel.mKeys.CancelDrag();
    End();
}

void TimelineCanvas_cls::OnCaptureLost(wxMouseCaptureLostEvent&) {
    if (mGesture != Gesture::None) Cancel();
}

// Wheel, menus, hovering

void TimelineCanvas_cls::OnWheel(wxMouseEvent& event) {
    using Area = TimelineView_cls::Area;
    Prepare();
    const double turns = static_cast<double>(event.GetWheelRotation()) / std::max(event.GetWheelDelta(), 1);
    const wxPoint place = event.GetPosition();
    const Area area = mView.FindArea(place);
    const bool aside = event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL;
    if (area == Area::Names || event.ControlDown()) {
        const int rows = static_cast<int>(std::lround(turns * 3 * mTheme.rowHeight));
        mView.mLanes.SetScroll(mView.mLanes.GetScroll() - rows, mTheme);
    } else if (aside || event.ShiftDown()) {
        mModel.mScale.Pan((aside ? -turns : turns) * mModel.mScale.GetWidth() / 10.0);
    } else {
        mModel.mScale.ZoomAt(mView.ToTrackX(place.x), std::pow(kZoomStep, turns));
    }
    RefreshAll();
}

void TimelineCanvas_cls::SelectForMenu(const std::optional<Found>& key) {
    if (!key || TimelineKeys_cls::IsSelected(key->lane, key->time)) return;
    mModel.mKeys.DeselectAll();
    TimelineKeys_cls::Select(key->lane, key->time);
    Refresh();
}

void TimelineCanvas_cls::OnContextMenu(wxContextMenuEvent& event) {
    using Area = TimelineView_cls::Area;
    if (mGesture != Gesture::None) return;
    Prepare();
    // The menu key has no place: it means the current row at the current frame.
    const bool byKey = event.GetPosition() == wxDefaultPosition;
    const wxPoint place = byKey ? wxPoint() : ScreenToClient(event.GetPosition());
    TimelineMenu_cls menu(mModel, *this);
    const int x = mView.ToTrackX(place.x);
    const Area area = mView.FindArea(place);
    if (byKey) {
        menu.ShowForKeys(mModel.GetCurrentNumber(), Parameters_cls::msCurrentDoubleIndex);
    } else if (area == Area::Ruler) {
        const double frame =
            std::clamp<double>(mModel.mScale.ToFrame(x), 0.0, mModel.mTimeCtrl.GetMaxFrame());
        menu.ShowForFrame(static_cast<int>(std::lround(frame)));
    } else if (area == Area::Curves) {
        SelectForMenu(FindCurveKey(place));
        menu.ShowForKeys(mModel.GetCurrentNumber(), mModel.ToTime(x));
    } else if (area == Area::Tracks || area == Area::Names) {
        const int row = mView.mLanes.FindRow(mView.ToLaneY(place.y), mTheme);
        mModel.SetCurrentRow(row);
        if (area == Area::Names) {
            menu.ShowForRow(row);
        } else {
            SelectForMenu(FindTrackKey(place));
            menu.ShowForKeys(row, mModel.ToTime(x));
        }
    }
    RefreshAll();
}

void TimelineCanvas_cls::ShowHover(wxPoint place) {
    using Area = TimelineView_cls::Area;
    Prepare();
    wxStockCursor cursor = wxCURSOR_ARROW;
    wxString tip;
    const wxPoint inLanes = mView.ToLanes(place);
    const int row = mView.mLanes.FindRow(inLanes.y, mTheme);
    switch (mView.FindArea(place)) {
        case Area::Ruler: {
            using Part = TimelineRuler_cls::Part;
            const Part part = mView.mRuler.HitTest(mTheme, inLanes.x, place.y);
            const bool all = part == Part::WorkAll || part == Part::ActiveAll;
            if (part != Part::Frames) cursor = all ? wxCURSOR_HAND : wxCURSOR_SIZEWE;
            tip = TimelineRuler_cls::GetTip(part);
            break;
        }
        case Area::NamesEdge:
            cursor = wxCURSOR_SIZEWE;
            break;
        case Area::CurvesEdge:
            cursor = wxCURSOR_SIZENS;
            break;
        case Area::Names:
            if (row >= 0 && mView.mLanes.FindNamePart(mTheme, row, place.x, mView.GetNamesWidth()) ==
                                TimelineLanes_cls::NamePart::Animated) {
                tip = "Animated by keys, or constant: click to switch";
            }
            break;
        case Area::Tracks:
            if (const std::optional<double> key = mView.mLanes.FindKey(mTheme, row, inLanes.x)) {
                cursor = wxCURSOR_HAND;
                tip = wxString::Format("Key at frame %.6g: drag to move, double click to edit",
                                       *key * mModel.mTimeCtrl.GetMaxFrame());
            }
            break;
        case Area::Curves: {
            const wxPoint inCurves = mView.ToCurves(place);
            if (const auto hit = mView.mCurves.FindKey(mTheme, inCurves.x, inCurves.y)) {
                cursor = wxCURSOR_SIZING;
                tip = hit->parameter->GetName() +
                      wxString::Format(" = %.6g at frame %.6g: drag to change", hit->value,
                                       hit->time * mModel.mTimeCtrl.GetMaxFrame());
            }
            break;
        }
        default:
            break;
    }
    SetCursor(wxCursor(cursor));
    if (GetToolTipText() != tip) SetToolTip(tip);
}

// Keys

void TimelineCanvas_cls::ShowKeyDialog(int row, double t) {
    const TimelineTree_cls::Row* found = mModel.mTree.GetRow(row);
    if (!found) return;
    const TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(*found);
    // A constant is edited in its one key, wherever that is.
    const bool constant = std::none_of(lane.begin(), lane.end(), [](const auto* parameter) {
        return parameter->IsTimeDependent() || parameter->GetKeys().empty();
    });
    const double time = constant && !lane.empty() ? lane.front()->GetKeys().front().mTime : t;
    KeyFrameGUI_cls dialog(this, mModel.mTimeCtrl, found->GetName(), lane, time);
    if (dialog.HasKeys()) dialog.ShowModal();
}

void TimelineCanvas_cls::EditKey(ParamGroup_cls& group, double t) {
    Prepare();
    const auto& rows = mModel.mTree.GetRows();
    const auto found = std::find_if(
        rows.begin(), rows.end(), [&](const auto& row) { return row.group == &group && row.component < 0; });
    if (found == rows.end()) return;
    const int row = static_cast<int>(found - rows.begin());
    mModel.SetCurrentRow(row);
    mView.mLanes.ScrollTo(row, mTheme);
    RefreshAll();
    ShowKeyDialog(row, t);
}

void TimelineCanvas_cls::MoveCurrentRow(int rows) {
    const int count = static_cast<int>(mModel.mTree.GetRows().size());
    if (count == 0) return;
    const int row = std::clamp(mModel.GetCurrentNumber() + rows, 0, count - 1);
    mModel.SetCurrentRow(row);
    mView.mLanes.ScrollTo(row, mTheme);
}

bool TimelineCanvas_cls::DoCommandKey(int key) {
    TimelineKeys_cls& keys = mModel.mKeys;
    switch (key) {
        case 'A':
            keys.SelectAll();
            return true;
        case 'C':
            keys.Copy();
            return true;
        case 'X':
            keys.Cut();
            return true;
        case 'V':
            keys.Paste(mModel.GetCurrentRow(), Parameters_cls::msCurrentDoubleIndex);
            return true;
        default:
            return false;
    }
}

void TimelineCanvas_cls::OnKey(wxKeyEvent& event) {
    Prepare();
    TimelineKeys_cls& keys = mModel.mKeys;
    const TimelineTree_cls::Row* row = mModel.GetCurrentRow();
    const int key = event.GetKeyCode();
    bool done = true;
    if (mGesture != Gesture::None) {
        // A drag is finished or given up before anything else, an undo too, is done to what it drags.
        if (key == WXK_ESCAPE) Cancel();
    } else if (event.ControlDown()) {
        done = !event.ShiftDown() && DoCommandKey(key);
    } else if (key == WXK_DELETE || key == WXK_BACK) {
        keys.Delete();
    } else if ((key == WXK_LEFT || key == WXK_RIGHT) && keys.HasSelection()) {
        keys.MoveByFrames((key == WXK_LEFT ? -1 : 1) * (event.ShiftDown() ? kLargeMove : 1));
    } else if (key == WXK_UP || key == WXK_DOWN) {
        MoveCurrentRow(key == WXK_UP ? -1 : 1);
    } else if (key == WXK_INSERT && row) {
        keys.InsertKey(mModel.mTree.GetParameters(*row), Parameters_cls::msCurrentDoubleIndex);
    } else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && row) {
        ShowKeyDialog(mModel.GetCurrentNumber(), Parameters_cls::msCurrentDoubleIndex);
    } else if (key == WXK_ESCAPE && keys.HasSelection()) {
        keys.DeselectAll();
    } else if ((key == '+' || key == WXK_NUMPAD_ADD) && row) {
        mModel.mTree.SetExpanded(TimelineTree_cls::Row(*row), true);
    } else if ((key == '-' || key == WXK_NUMPAD_SUBTRACT) && row) {
        mModel.mTree.SetExpanded(TimelineTree_cls::Row(*row), false);
    } else if (key == WXK_TAB) {
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
    } else {
        done = false;
    }
    if (done) RefreshAll();
    event.Skip(!done);
}
