#include "timeline/clsCommandSetTimeCtrlValue.h"

#include "timeline/clsTimeCtrl.h"

namespace {

struct Kind {
    const char* name;
    int updateBits;
};

Kind GetKind(TimeValue which) {
    constexpr int kControls = CommandItem_cls::kUpdateTimeline;
    constexpr int kInstant = kControls | CommandItem_cls::kUpdateTime | CommandItem_cls::kUpdateRedraw;
    constexpr int kMapping = kInstant | CommandItem_cls::kUpdateKeys;
    switch (which) {
        case TimeValue::Frame:
            return {"Go to Frame", kInstant};
        case TimeValue::Step:
            return {"Go to Sub-step", kInstant};
        case TimeValue::WorkAreaMin:
        case TimeValue::WorkAreaMax:
            return {"Work Area", kControls};
        case TimeValue::ActiveAreaMin:
        case TimeValue::ActiveAreaMax:
            return {"Active Area", kControls};
        case TimeValue::Repeat:
            return {"Repeat", kControls};
        case TimeValue::AnimStep:
            return {"Frame Step", kControls};
        case TimeValue::AnimInterp:
            return {"Sub-steps", kInstant};
        case TimeValue::Prefetch:
            return {"Prefetch", kControls};
        case TimeValue::MaxFrame:
        case TimeValue::SceneLengthType:
            return {"Scene Length", kMapping};
        case TimeValue::UseTimeRemap:
            return {"Time Remap", kMapping};
        case TimeValue::UseMotionBlur:
            return {"Motion Blur", kInstant};
    }
    return {"", 0};
}

}  // namespace

CommandSetTimeCtrlValue_cls::CommandSetTimeCtrlValue_cls(TimeCtrl_cls& timeCtrl, TimeValue which, int value)
    : CommandItem_cls(GetKind(which).updateBits), mTimeCtrl(timeCtrl), mWhich(which), mValue(value) {}

void CommandSetTimeCtrlValue_cls::Execute(bool) {
    mTimeCtrl.ApplyValue(mWhich, mValue);
    UpdateBit();
}

wxString CommandSetTimeCtrlValue_cls::GetName() const {
    return GetKind(mWhich).name;
}

bool CommandSetTimeCtrlValue_cls::ChangesProject() const {
    return mWhich != TimeValue::Frame && mWhich != TimeValue::Step && mWhich != TimeValue::Prefetch;
}
