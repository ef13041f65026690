#include "gui/clsColorCurveCanvas.h"

#include <wx/dcbuffer.h>
#include <wx/graphics.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "gui/clsGradientImage.h"
#include "render/clsColorCurveEdit.h"
#include "timeline/clsUndoManager.h"

namespace {

// Device independent pixels
constexpr int kCurveMargin = 12;
constexpr int kBarHeight = 30;
constexpr int kHandle = 6;
constexpr int kReach = 7;  ///< how near to a key the mouse takes hold of it
constexpr double kStep = 0.01;
constexpr double kFineStep = 0.001;
constexpr size_t kBins = 96;

const std::array<wxColour, 4>& ChannelColours() {
    static const std::array<wxColour, 4> colours = {wxColour(226, 74, 74), wxColour(66, 176, 88),
                                                    wxColour(74, 128, 240), wxColour(150, 150, 150)};
    return colours;
}

}  // namespace

ColorCurveCanvas_cls::ColorCurveCanvas_cls(wxWindow* parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxFULL_REPAINT_ON_RESIZE | wxWANTS_CHARS,
               "Color Curve") {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetToolTip(
        _("Drag a key on the gradient to move it, a point of the curves to change one channel.\n"
          "Double click or Insert adds a key, Delete removes it, Left and Right move it."));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
        SetFocus();
        OnDown(event.GetPosition());
    });
    Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
        OnDown(event.GetPosition());
        EndDrag(false);
        if (!FindKey(event.GetX())) InsertKey();
    });
    Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
        if (event.LeftIsDown()) OnMove(event.GetPosition());
        SetCursor(FindGrip(event.GetPosition()) ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
    });
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        // The last way of a quick drag may come with no event of its own.
        if (mMoved) OnMove(event.GetPosition());
        EndDrag(false);
    });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { EndDrag(true); });
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (!OnKey(event.GetKeyCode(), event.ControlDown(), event.ShiftDown())) event.Skip();
    });
    const auto refresh = [this](wxFocusEvent& event) {
        Refresh();
        event.Skip();
    };
    Bind(wxEVT_SET_FOCUS, refresh);
    Bind(wxEVT_KILL_FOCUS, refresh);
}

wxSize ColorCurveCanvas_cls::DoGetBestClientSize() const {
    return FromDIP(wxSize(420, 190));
}

void ColorCurveCanvas_cls::SetCurve(ColorCurve_cls* curve) {
    if (mCurve != curve) {
        EndDrag(true);
        mCurve = curve;
        mPosition = 0.0;
    }
    Refresh();
}

void ColorCurveCanvas_cls::SetHistogram(const ValueHistogram_cls* histogram) {
    mHistogram = histogram;
    mBins.clear();
    Refresh();
}

void ColorCurveCanvas_cls::SetPosition(double position) {
    mPosition = std::clamp(position, 0.0, 1.0);
    Refresh();
    if (mObserver) mObserver();
}

// Places

wxRect ColorCurveCanvas_cls::GetBar() const {
    const wxSize size = GetClientSize();
    const int margin = FromDIP(kCurveMargin);
    const int height = FromDIP(kBarHeight);
    return {margin, size.y - margin - height, std::max(size.x - 2 * margin, 1), height};
}

wxRect ColorCurveCanvas_cls::GetPlot() const {
    const wxRect bar = GetBar();
    const int top = FromDIP(kCurveMargin) / 2;
    return {bar.x, top, bar.width, std::max(bar.y - top - FromDIP(kCurveMargin) / 2, 1)};
}

double ColorCurveCanvas_cls::ToPosition(int x) const {
    const wxRect bar = GetBar();
    return std::clamp(static_cast<double>(x - bar.x) / bar.width, 0.0, 1.0);
}

int ColorCurveCanvas_cls::ToX(double position) const {
    const wxRect bar = GetBar();
    return bar.x + static_cast<int>(std::lround(position * bar.width));
}

wxPoint ColorCurveCanvas_cls::GetPoint(double position) const {
    const wxRect bar = GetBar();
    return {ToX(position), bar.y + bar.height / 2};
}

std::optional<double> ColorCurveCanvas_cls::FindKey(int x) const {
    std::optional<double> nearest;
    if (!mCurve) return nearest;
    for (const double position : ColorCurveEdit_cls(*mCurve).GetPositions()) {
        const int distance = std::abs(ToX(position) - x);
        if (distance <= FromDIP(kReach) && (!nearest || distance < std::abs(ToX(*nearest) - x)))
            nearest = position;
    }
    return nearest;
}

std::optional<ColorCurveCanvas_cls::Drag> ColorCurveCanvas_cls::FindGrip(const wxPoint& point) const {
    const std::optional<double> key = FindKey(point.x);
    if (!key) return {};
    const wxRect plot = GetPlot();
    if (point.y > plot.GetBottom()) return Drag{*key, {}};
    // The topmost dot is drawn last.
    const Color4 color = ColorCurveEdit_cls::GetColor(*mCurve, *key);
    for (int channel = 3; channel >= 0; --channel) {
        const double value = color[static_cast<size_t>(channel)];
        if (std::abs(plot.GetBottom() - value * plot.height - point.y) <= FromDIP(kReach))
            return Drag{*key, channel};
    }
    return {};
}

// Drawing

void ColorCurveCanvas_cls::OnPaint() {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
    dc.Clear();
    const std::unique_ptr<wxGraphicsContext> graphics(wxGraphicsContext::Create(dc));
    if (!graphics || !mCurve) return;
    DrawHistogram(*graphics);
    DrawChannels(*graphics);
    DrawBar(*graphics);
}

const std::vector<float>& ColorCurveCanvas_cls::GetBins() {
    const ValueHistogram_cls::Range range{mCurve->mScalingMin.mValue, mCurve->mScalingMax.mValue};
    if (mBins.empty() || range != mBinsRange) {
        mBins = mHistogram->GetBins(range, kBins);
        mBinsRange = range;
    }
    return mBins;
}

void ColorCurveCanvas_cls::DrawHistogram(wxGraphicsContext& graphics) {
    if (!mHistogram) return;
    const wxRect plot = GetPlot();
    const std::vector<float>& bins = GetBins();
    const double width = static_cast<double>(plot.width) / static_cast<double>(kBins);
    wxColour colour = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    graphics.SetPen(*wxTRANSPARENT_PEN);
    graphics.SetBrush(wxBrush(wxColour(colour.Red(), colour.Green(), colour.Blue(), 48)));
    for (size_t i = 0; i < bins.size(); ++i) {
        const double height = static_cast<double>(bins[i]) * plot.height;
        graphics.DrawRectangle(plot.x + static_cast<double>(i) * width, plot.GetBottom() - height, width,
                               height);
    }
}

void ColorCurveCanvas_cls::DrawChannels(wxGraphicsContext& graphics) const {
    const wxRect plot = GetPlot();
    const wxColour frame = wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT);
    graphics.SetPen(wxPen(wxColour(frame.Red(), frame.Green(), frame.Blue(), 90)));
    graphics.SetBrush(*wxTRANSPARENT_BRUSH);
    graphics.DrawRectangle(plot.x, plot.y, plot.width, plot.height);

    const auto yOf = [&plot](double value) {
        return plot.GetBottom() - std::clamp(value, 0.0, 1.0) * plot.height;
    };
    const ParamGroup_cls& group = mCurve->GetParamGroup();
    // Alpha first: it is 1 everywhere in most curves and must not hide a colour.
    for (const int channel : {3, 2, 1, 0}) {
        const Parameters_cls& parameter = group.GetParameter(channel);
        const wxColour& colour = ChannelColours()[static_cast<size_t>(channel)];
        wxGraphicsPath path = graphics.CreatePath();
        for (int x = 0; x <= plot.width; x += 2) {
            const double y = yOf(parameter.Evaluate(static_cast<double>(x) / plot.width, 0.0));
            if (x == 0) path.MoveToPoint(plot.x, y);
            path.AddLineToPoint(plot.x + x, y);
        }
        graphics.SetPen(wxPen(colour, std::max(FromDIP(1), 1)));
        graphics.StrokePath(path);
        graphics.SetBrush(wxBrush(colour));
        const double size = FromDIP(kHandle);
        for (const KeyFrame_cls& key : parameter.GetKeys())
            graphics.DrawEllipse(ToX(key.mTime) - size / 2, yOf(key.mValue) - size / 2, size, size);
    }
}

void ColorCurveCanvas_cls::DrawBar(wxGraphicsContext& graphics) const {
    const wxRect bar = GetBar();
    const wxImage image = GradientImage_cls::Make(*mCurve, GradientImage_cls::Show::Keys, bar.width,
                                                  bar.height, FromDIP(GradientImage_cls::kSquare));
    graphics.DrawBitmap(wxBitmap(image), bar.x, bar.y, bar.width, bar.height);

    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    const wxColour chosen = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    graphics.SetPen(wxPen(HasFocus() ? chosen : text));
    graphics.SetBrush(*wxTRANSPARENT_BRUSH);
    graphics.DrawRectangle(bar.x - 1, bar.y - 1, bar.width + 1, bar.height + 1);

    const int x = ToX(mPosition);
    graphics.SetPen(wxPen(wxColour(text.Red(), text.Green(), text.Blue(), 140), 1, wxPENSTYLE_DOT));
    graphics.StrokeLine(x, GetPlot().y, x, bar.GetBottom());
    // Each key: a line across the gradient, bright and dark so that it shows on every colour, and a handle.
    const double half = FromDIP(kHandle);
    for (const double position : ColorCurveEdit_cls(*mCurve).GetPositions()) {
        const int at = ToX(position);
        const bool current = at == x;
        graphics.SetPen(wxPen(wxColour(0, 0, 0, 160), 3));
        graphics.StrokeLine(at, bar.y, at, bar.GetBottom());
        graphics.SetPen(wxPen(*wxWHITE, 1));
        graphics.StrokeLine(at, bar.y, at, bar.GetBottom());
        wxGraphicsPath handle = graphics.CreatePath();
        handle.MoveToPoint(at, bar.GetBottom() - half / 2);
        handle.AddLineToPoint(at - half, bar.GetBottom() + half * 1.5);
        handle.AddLineToPoint(at + half, bar.GetBottom() + half * 1.5);
        handle.CloseSubpath();
        graphics.SetPen(wxPen(current ? window : text));
        graphics.SetBrush(wxBrush(current ? chosen : window));
        graphics.DrawPath(handle);
    }
}

// Editing

void ColorCurveCanvas_cls::InsertKey() {
    if (mCurve)
        ColorCurveEdit_cls(*mCurve).InsertKey(mPosition, ColorCurveEdit_cls::GetColor(*mCurve, mPosition));
    SetPosition(mPosition);
}

void ColorCurveCanvas_cls::DeleteKey() {
    if (mCurve) ColorCurveEdit_cls(*mCurve).DeleteKey(mPosition);
    SetPosition(mPosition);
}

void ColorCurveCanvas_cls::OnDown(const wxPoint& point) {
    if (!mCurve) return;
    mDrag = FindGrip(point);
    mMoved = false;
    SetPosition(mDrag ? mDrag->from : ToPosition(point.x));
    if (mDrag && !HasCapture()) CaptureMouse();
}

void ColorCurveCanvas_cls::OnMove(const wxPoint& point) {
    if (!mDrag || !mCurve) return;
    if (!mMoved) GCUndoList.BeginDrag();
    mMoved = true;
    GCUndoList.RestartDrag();
    ColorCurveEdit_cls edit(*mCurve);
    if (!mDrag->channel) {
        SetPosition(edit.MoveKey(mDrag->from, ToPosition(point.x)));
        return;
    }
    const wxRect plot = GetPlot();
    const double value = static_cast<double>(plot.GetBottom() - point.y) / plot.height;
    Color4 color = edit.GetColor(mDrag->from);
    color[static_cast<size_t>(*mDrag->channel)] = static_cast<float>(std::clamp(value, 0.0, 1.0));
    edit.SetColor(mDrag->from, color);
    SetPosition(mDrag->from);
}

void ColorCurveCanvas_cls::EndDrag(bool cancel) {
    if (HasCapture()) ReleaseMouse();
    if (!mDrag) return;
    const Drag drag = *mDrag;
    mDrag.reset();
    if (!mMoved) return;
    if (cancel) {
        GCUndoList.CancelDrag();
        SetPosition(drag.from);
    } else {
        GCUndoList.EndDrag();
    }
}

void ColorCurveCanvas_cls::ChooseNeighbour(int direction) {
    std::optional<double> next;
    for (const double position : ColorCurveEdit_cls(*mCurve).GetPositions()) {
        const bool beyond = direction > 0 ? position > mPosition : position < mPosition;
        if (beyond && (!next || direction < 0)) next = position;
    }
    if (next) SetPosition(*next);
}

bool ColorCurveCanvas_cls::OnKey(int key, bool control, bool shift) {
    if (!mCurve || !HasFocus()) return false;
    if (key == WXK_ESCAPE && mDrag) {
        EndDrag(true);
    } else if (key == WXK_INSERT || key == WXK_NUMPAD_INSERT) {
        InsertKey();
    } else if (key == WXK_DELETE || key == WXK_NUMPAD_DELETE) {
        DeleteKey();
    } else if (key == WXK_LEFT || key == WXK_RIGHT) {
        const int direction = key == WXK_RIGHT ? 1 : -1;
        if (control) {
            ChooseNeighbour(direction);
        } else {
            const double to = mPosition + direction * (shift ? kFineStep : kStep);
            ColorCurveEdit_cls edit(*mCurve);
            // Between keys the current position itself moves.
            SetPosition(edit.HasKey(mPosition) ? edit.MoveKey(mPosition, to) : to);
        }
    } else {
        return false;
    }
    return true;
}
