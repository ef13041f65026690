#include "timeline/clsTimeSettings.h"

#include <algorithm>
#include <limits>

namespace {

int ToInt(int value) {
    return value;
}

int ToInt(bool value) {
    return value ? 1 : 0;
}

int ToInt(unsigned int value) {
    constexpr unsigned int kLargest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(value, kLargest));
}

}  // namespace

void TimeSettings_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mMaxFrame, "TimeMaxFrame=", "100");
    mItems.Add(&mWorkAreaMin, "TimeWorkAreaMin=", "0");
    mItems.Add(&mWorkAreaMax, "TimeWorkAreaMax=", "100");
    mItems.Add(&mActiveAreaMin, "TimeActiveAreaMin=", "0");
    mItems.Add(&mActiveAreaMax, "TImeActiveAreaMax=", "100");  // projects carry this spelling
    mItems.Add(&mUseTimeRemap, "TimeUseTimeRemap=", "0");
    mItems.Add(&mUseMotionBlur, "TimeUseMotionBlur=", "0");
    mItems.Add(&mAnimStep, "TimeAnimStep=", "1");
    mItems.Add(&mAnimInterp, "TimeAnimInterp=", "1");
    mItems.Add(&mRepeat, "TimeRepeat=", "0");
    mItems.Add(&mSceneLengthType, "TimeSceneLengthType=", "0");
}

int TimeSettings_cls::GetMaxFrame() const {
    return ToInt(mMaxFrame.mValue);
}

FrameRange TimeSettings_cls::InScene(const ConfItemUINT_cls& one, const ConfItemUINT_cls& other) const {
    const auto [first, last] = std::minmax({ToInt(one.mValue), ToInt(other.mValue)});
    return {std::min(first, GetMaxFrame()), std::min(last, GetMaxFrame())};
}

FrameRange TimeSettings_cls::GetWorkArea() const {
    return InScene(mWorkAreaMin, mWorkAreaMax);
}

FrameRange TimeSettings_cls::GetActiveArea() const {
    return InScene(mActiveAreaMin, mActiveAreaMax);
}

int TimeSettings_cls::GetAnimStep() const {
    return std::max(mAnimStep.mValue, 1);
}

int TimeSettings_cls::GetAnimInterp() const {
    return std::max(mAnimInterp.mValue, 1);
}

TimeSettings_cls::Item TimeSettings_cls::Find(TimeValue which) {
    switch (which) {
        case TimeValue::MaxFrame:
            return &mMaxFrame;
        case TimeValue::WorkAreaMin:
            return &mWorkAreaMin;
        case TimeValue::WorkAreaMax:
            return &mWorkAreaMax;
        case TimeValue::ActiveAreaMin:
            return &mActiveAreaMin;
        case TimeValue::ActiveAreaMax:
            return &mActiveAreaMax;
        case TimeValue::UseTimeRemap:
            return &mUseTimeRemap;
        case TimeValue::UseMotionBlur:
            return &mUseMotionBlur;
        case TimeValue::AnimStep:
            return &mAnimStep;
        case TimeValue::AnimInterp:
            return &mAnimInterp;
        case TimeValue::Repeat:
            return &mRepeat;
        case TimeValue::SceneLengthType:
            return &mSceneLengthType;
        case TimeValue::Frame:
        case TimeValue::Step:
        case TimeValue::Prefetch:
            break;
    }
    return {};
}

int TimeSettings_cls::Get(TimeValue which) {
    return std::visit(
        [](auto item) {
            if constexpr (std::is_pointer_v<decltype(item)>)
                return ToInt(item->mValue);
            else
                return 0;
        },
        Find(which));
}

void TimeSettings_cls::Set(TimeValue which, int value) {
    const Item item = Find(which);
    if (auto* const* frames = std::get_if<ConfItemUINT_cls*>(&item))
        (*frames)->mValue = static_cast<unsigned int>(std::max(value, 0));
    if (auto* const* number = std::get_if<ConfItemINT_cls*>(&item)) (*number)->mValue = value;
    if (auto* const* flag = std::get_if<ConfItemBOOL_cls*>(&item)) (*flag)->mValue = value != 0;
}
