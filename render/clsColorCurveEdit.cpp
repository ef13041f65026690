#include "render/clsColorCurveEdit.h"

#include <algorithm>
#include <cmath>

#include "timeline/clsCommandSetValue.h"
#include "timeline/clsParamEdit.h"

namespace {

/// Files keep nine decimals of a position.
constexpr double kSamePosition = 1e-8;
/// Keys that are moved keep this distance, less than a pixel of any editor.
constexpr double kDistance = 0.001;
constexpr int kUpdates = CommandItem_cls::kUpdatePanels | CommandItem_cls::kUpdateRedraw;

}  // namespace

std::vector<double> ColorCurveEdit_cls::GetPositions() const {
    std::vector<double> positions;
    const ParamGroup_cls& group = mCurve.GetParamGroup();
    for (int channel = 0; channel < group.GetDimension(); ++channel) {
        for (const KeyFrame_cls& key : group.GetParameter(channel).GetKeys()) positions.push_back(key.mTime);
    }
    std::sort(positions.begin(), positions.end());
    const auto same = [](double one, double other) { return other - one <= kSamePosition; };
    positions.erase(std::unique(positions.begin(), positions.end(), same), positions.end());
    return positions;
}

Color4 ColorCurveEdit_cls::GetColor(const ColorCurve_cls& curve, double position) {
    Color4 color{};
    for (size_t channel = 0; channel < color.size(); ++channel) {
        const Parameters_cls& parameter = curve.GetParamGroup().GetParameter(static_cast<int>(channel));
        color[channel] = static_cast<float>(parameter.Evaluate(position, 0.0));
    }
    return color;
}

bool ColorCurveEdit_cls::HasKey(double position) const {
    const std::vector<double> positions = GetPositions();
    return std::any_of(positions.begin(), positions.end(),
                       [=](double other) { return std::abs(other - position) <= kSamePosition; });
}

void ColorCurveEdit_cls::SetKey(const wxString& name, double position, const Color4& color) {
    if (!(position >= 0.0 && position <= 1.0)) return;
    const std::array<double, 4> values{color[0], color[1], color[2], color[3]};
    ParamEdit_cls::ChangeGroup(name, mCurve.GetParamGroup(), [&] {
        mCurve.GetParamGroup().SetKeyFrame(values.data(), true, position, kSamePosition);
    });
}

void ColorCurveEdit_cls::DeleteKey(double position) {
    ParamEdit_cls::ChangeGroup("Delete Key", mCurve.GetParamGroup(),
                               [&] { mCurve.GetParamGroup().DeleteKey(position, kSamePosition); });
}

double ColorCurveEdit_cls::MoveKey(double from, double to) {
    if (!HasKey(from) || !std::isfinite(to)) return from;
    double low = 0.0;
    double high = 1.0;
    for (const double position : GetPositions()) {
        if (position < from - kSamePosition) low = std::max(low, position + kDistance);
        if (position > from + kSamePosition) high = std::min(high, position - kDistance);
    }
    if (low > high) return from;
    const double position = std::clamp(to, low, high);
    ParamGroup_cls& group = mCurve.GetParamGroup();
    ParamEdit_cls::ChangeGroup("Move Key", group, [&] {
        for (int channel = 0; channel < group.GetDimension(); ++channel) {
            Parameters_cls& parameter = group.GetParameter(channel);
            parameter.MoveKey(parameter.FindKey(from, kSamePosition), position);
        }
    });
    return position;
}

void ColorCurveEdit_cls::SetScaling(float min, float max) {
    const UndoBlock_cls block("Min/Max");
    SetValueCommand("Min/Max", mCurve.mScalingMin.mValue, min, kUpdates);
    SetValueCommand("Min/Max", mCurve.mScalingMax.mValue, max, kUpdates);
}

void ColorCurveEdit_cls::ApplyTemplate(const ColorCurve_cls& source) {
    ParamEdit_cls::ChangeGroup("Color Curve Template", mCurve.GetParamGroup(),
                               [&] { mCurve.CopyColorFromP(source, true); });
}

void ColorCurveEdit_cls::Paste(const ColorCurve_cls& source) {
    const UndoBlock_cls block("Paste Color Curve");
    ParamEdit_cls::ChangeGroup("Paste Color Curve", mCurve.GetParamGroup(),
                               [&] { mCurve.CopyColorFromP(source, true); });
    Color4 constant{};
    std::copy_n(source.mConstantColor.mValue.begin(), constant.size(), constant.begin());
    SetColorCommand({}, std::span(mCurve.mConstantColor.mValue).first(constant.size()), constant, kUpdates);
    SetValueCommand({}, mCurve.mUseColorCurve.mValue, source.mUseColorCurve.mValue, kUpdates);
    SetValueCommand({}, mCurve.mScalingMin.mValue, source.mScalingMin.mValue, kUpdates);
    SetValueCommand({}, mCurve.mScalingMax.mValue, source.mScalingMax.mValue, kUpdates);
    SetValueCommand({}, mCurve.mDependType.mValue, source.mDependType.mValue, kUpdates);
}
