#include "gui/clsTimelineScale.h"

#include <algorithm>
#include <cmath>

#include "timeline/clsTimeCtrl.h"

namespace {

constexpr double kSmallestTick = 4.0;  // pixels
/// Zooming out ends where the scene takes this part of the width.
constexpr double kSmallestScene = 0.5;

}  // namespace

double TimelineScale_cls::GetWholePixels() const {
    return std::max(mWidth - 2.0 * kMargin, 1.0) / std::max(mMaxFrame, 1);
}

void TimelineScale_cls::SetSize(double width, int maxFrame) {
    mWidth = std::max(width, 1.0);
    mMaxFrame = maxFrame;
    if (mWhole) {
        ShowAll();
    } else {
        KeepInside();
    }
}

void TimelineScale_cls::ShowAll() {
    mWhole = true;
    mPixels = GetWholePixels();
    mFirst = -kMargin / mPixels;
}

void TimelineScale_cls::ShowRange(double first, double last) {
    mWhole = false;
    mPixels = std::max(mWidth - 2.0 * kMargin, 1.0) / std::max(last - first, 1.0);
    mFirst = first - kMargin / mPixels;
    KeepInside();
}

void TimelineScale_cls::ZoomAt(double x, double factor) {
    if (!(factor > 0.0)) return;
    const double frame = ToFrame(x);
    mWhole = false;
    mPixels *= factor;
    KeepInside();
    mFirst = frame - x / mPixels;
    KeepInside();
}

void TimelineScale_cls::Pan(double pixels) {
    mWhole = false;
    mFirst -= pixels / mPixels;
    KeepInside();
}

bool TimelineScale_cls::Follow(double frame) {
    const double x = ToX(frame);
    if (x >= 0.0 && x <= mWidth) return false;
    mFirst = x < 0.0 ? frame - (mWidth - kMargin) / mPixels : frame - kMargin / mPixels;
    KeepInside();
    return true;
}

void TimelineScale_cls::KeepInside() {
    const double whole = GetWholePixels();
    mPixels = std::clamp(mPixels, std::min(whole * kSmallestScene, kMaxPixels), std::max(whole, kMaxPixels));
    const double half = mWidth / 2.0 / mPixels;
    mFirst = std::clamp(mFirst, -half, mMaxFrame - half);
}

int TimelineScale_cls::GetLabelSpacing(double pixels) const {
    const double least = std::max(pixels / mPixels, 1.0);
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0}) {
        if (step * power >= least) return static_cast<int>(step * power);
    }
    return static_cast<int>(std::min(10.0 * power, 1e9));
}

int TimelineScale_cls::GetTickSpacing() const {
    const int wanted = TimeCtrl_cls::GetInterval(static_cast<int>(std::min(mWidth / mPixels, 1e9)));
    return std::max(wanted, GetLabelSpacing(kSmallestTick));
}
