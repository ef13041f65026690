#include "gui/clsTimelineCurves.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr size_t kMostCurves = 12;  // of a container; more could not be told apart
constexpr double kCurveStep = 2.0;  // pixels between two points of a curve
constexpr double kRoom = 0.12;      // of the height, above and below
constexpr int kCurveGrip = 2;

/// 1, 2 or 5 times a power of ten, at least this.
double RoundUp(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0}) {
        if (step * power >= least) return step * power;
    }
    return 10.0 * power;
}

/// Calls the function for the round values between two, at least `least` apart. Few, whatever the values are.
void EachRound(double low, double high, double least, const std::function<void(double)>& function) {
    if (!(least > 0.0) || !std::isfinite(high - low)) return;
    const double step = RoundUp(least);
    const double first = std::ceil(low / step);
    const int count = static_cast<int>(std::min((high - low) / least, 100.0));
    for (int i = 0; i <= count && (first + i) * step <= high; ++i) function((first + i) * step);
}

}  // namespace

std::vector<TimelineCurves_cls::Curve> TimelineCurves_cls::GetCurves() const {
    const TimelineTree_cls::Row* row = mModel.GetCurrentRow();
    if (!row) return {};
    std::vector<Curve> curves;
    for (const Parameters_cls* parameter : mModel.mTree.GetParameters(*row)) {
        const int component = row->component >= 0 ? row->component : static_cast<int>(curves.size());
        if (curves.size() < kMostCurves) curves.push_back({parameter, component});
    }
    return curves;
}

TimelineKeys_cls::Lane TimelineCurves_cls::GetAnimated() const {
    const TimelineTree_cls::Row* row = mModel.GetCurrentRow();
    if (!row) return {};
    TimelineKeys_cls::Lane lane = mModel.mTree.GetParameters(*row);
    if (lane.size() > kMostCurves) lane.resize(kMostCurves);
    std::erase_if(lane, [](const Parameters_cls* parameter) { return !parameter->IsTimeDependent(); });
    return lane;
}

// Values and places

double TimelineCurves_cls::ToY(double value) const {
    return mHeight * (1.0 - (value - mLow) / (mHigh - mLow));
}

double TimelineCurves_cls::ToValue(double y) const {
    return mLow + (1.0 - y / mHeight) * (mHigh - mLow);
}

void TimelineCurves_cls::FitValues() {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    const auto include = [&](double value) {
        if (!std::isfinite(value)) return;
        low = std::min(low, value);
        high = std::max(high, value);
    };
    for (const Curve& curve : GetCurves()) {
        for (double x = 0.0; x <= mModel.mScale.GetWidth(); x += kCurveStep)
            include(curve.parameter->Evaluate(mModel.ToTime(x), 0.0));
    }
    if (!(low <= high)) low = high = 0.0;
    // A curve that is level lies in the middle, at a scale of its own size.
    const double least = std::max({std::abs(low), std::abs(high), 1.0}) * 1e-6;
    const double room = high - low > least ? (high - low) * kRoom : std::max(std::abs(low) * 0.5, 0.5);
    constexpr double kLargest = 1e300;
    mLow = std::clamp(low - room, -kLargest, kLargest);
    mHigh = std::clamp(high + room, -kLargest, kLargest);
}

// Drawing

void TimelineCurves_cls::Draw(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int fromX,
                              int toX) const {
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(theme.background));
    gc.DrawRectangle(fromX, 0.0, toX - fromX, mHeight);
    EachRound(mLow, mHigh, (mHigh - mLow) * theme.rowHeight / mHeight, [&](double value) {
        const double y = std::round(ToY(value)) + 0.5;
        gc.SetPen(wxPen(value == 0.0 ? theme.line : theme.grid));
        gc.StrokeLine(fromX, y, toX, y);
    });
    const std::vector<Curve> curves = GetCurves();
    for (const Curve& curve : curves) DrawCurve(gc, theme, curve, fromX, toX);
    for (const Curve& curve : curves) DrawKeys(gc, theme, curve, fromX, toX);
    if (!curves.empty()) return;
    gc.SetFont(theme.font, theme.faintText);
    gc.DrawText("Click a name to see its curves", theme.rowHeight, mHeight / 2.0 - theme.rowHeight / 2.0);
}

void TimelineCurves_cls::DrawValues(wxGraphicsContext& gc, const TimelineTheme_cls& theme, int width) const {
    gc.SetPen(*wxTRANSPARENT_PEN);
    gc.SetBrush(wxBrush(theme.panel));
    gc.DrawRectangle(0.0, 0.0, width, mHeight);
    const TimelineTree_cls::Row* row = mModel.GetCurrentRow();
    if (!row) return;
    gc.SetFont(theme.font, theme.text);
    gc.DrawText(row->GetName(), theme.indent * 0.4, 2.0);
    gc.SetFont(theme.smallFont, theme.faintText);
    EachRound(mLow, mHigh, (mHigh - mLow) * theme.rowHeight / mHeight, [&](double value) {
        // A sum of steps leaves a rest near zero that nobody wants to read.
        const bool zero = std::abs(value) < (mHigh - mLow) * 1e-9;
        const wxString text = zero ? wxString("0") : wxString::Format("%.6g", value);
        double textWidth = 0.0;
        double textHeight = 0.0;
        gc.GetTextExtent(text, &textWidth, &textHeight);
        const double y = ToY(value) - textHeight / 2.0;
        if (y > theme.rowHeight && y < mHeight - textHeight)
            gc.DrawText(text, width - textWidth - theme.keySize, y);
    });
}

void TimelineCurves_cls::DrawCurve(wxGraphicsContext& gc, const TimelineTheme_cls& theme, const Curve& curve,
                                   int fromX, int toX) const {
    wxGraphicsPath path = gc.CreatePath();
    // The points stay where they are when only a part is drawn anew.
    const double first = std::floor(fromX / kCurveStep) * kCurveStep;
    for (double x = first; x <= toX + kCurveStep; x += kCurveStep) {
        const double y = std::clamp(ToY(curve.parameter->Evaluate(mModel.ToTime(x), 0.0)), -1e4, 1e5);
        if (x == first) {
            path.MoveToPoint(x, y);
        } else {
            path.AddLineToPoint(x, y);
        }
    }
    const bool animated = curve.parameter->IsTimeDependent();
    const wxColour colour = theme.GetComponentColour(curve.component);
    gc.SetPen(
        wxPen(wxColour(colour.Red(), colour.Green(), colour.Blue(), animated ? 255 : 90), animated ? 2 : 1));
    gc.StrokePath(path);
}

void TimelineCurves_cls::DrawKeys(wxGraphicsContext& gc, const TimelineTheme_cls& theme, const Curve& curve,
                                  int fromX, int toX) const {
    if (!curve.parameter->IsTimeDependent()) return;
    const std::vector<KeyFrame_cls>& keys = curve.parameter->GetKeys();
    const double reach = 2.0 * theme.keySize;
    auto key = std::partition_point(
        keys.begin(), keys.end(), [&](const KeyFrame_cls& k) { return mModel.ToX(k.mTime) < fromX - reach; });
    const KeyFrame_cls* drawn = nullptr;
    double drawnX = 0.0;
    gc.SetPen(wxPen(theme.background));
    for (; key != keys.end(); ++key) {
        const double x = mModel.ToX(key->mTime);
        if (x > toX + reach) break;
        // Keys too near to be told apart are one.
        if (drawn && x - drawnX < theme.keySize / 2.0 && drawn->mSelected == key->mSelected) continue;
        drawn = &*key;
        drawnX = x;
        wxGraphicsPath path = gc.CreatePath();
        theme.AddKey(path, x, ToY(key->mValue), key->mType);
        gc.SetBrush(wxBrush(key->mSelected ? theme.selectedKey : theme.GetComponentColour(curve.component)));
        gc.DrawPath(path);
    }
}

// Mouse

std::optional<TimelineCurves_cls::Hit> TimelineCurves_cls::FindKey(const TimelineTheme_cls& theme, int x,
                                                                   int y) const {
    const double reach = theme.keySize + kCurveGrip;
    std::optional<Hit> nearest;
    double distance = reach;
    for (Parameters_cls* parameter : GetAnimated()) {
        const std::vector<KeyFrame_cls>& keys = parameter->GetKeys();
        auto key = std::partition_point(
            keys.begin(), keys.end(), [&](const KeyFrame_cls& k) { return mModel.ToX(k.mTime) < x - reach; });
        for (; key != keys.end() && mModel.ToX(key->mTime) <= x + reach; ++key) {
            const double d = std::hypot(mModel.ToX(key->mTime) - x, ToY(key->mValue) - y);
            if (!(d <= distance)) continue;
            distance = d;
            nearest = {parameter, key->mTime, key->mValue};
        }
    }
    return nearest;
}

void TimelineCurves_cls::SelectBox(wxPoint from, wxPoint to) {
    const auto [left, right] = std::minmax(from.x, to.x);
    const auto [top, bottom] = std::minmax(from.y, to.y);
    for (Parameters_cls* parameter : GetAnimated()) {
        for (int i = 0; i < parameter->GetKeyNumber(); ++i) {
            const KeyFrame_cls& key = parameter->GetKeys()[static_cast<size_t>(i)];
            const double x = mModel.ToX(key.mTime);
            const double y = ToY(key.mValue);
            if (x >= left && x <= right && y >= top && y <= bottom) parameter->SelectKeyFrame(i);
        }
    }
}
