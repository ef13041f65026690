#include "timeline/clsComParam.h"

ComParamSetKey_cls::ComParamSetKey_cls(Parameters_cls& parameter, double time, unsigned int type,
                                       double value, double velocity, double easeFactor)
    : ComParamBase_cls(parameter) {
    mKey.Set(time, type, value, velocity, easeFactor, false);
}

void ComParamSetKey_cls::Apply(Parameters_cls& parameter) {
    parameter.SetKey(mKey.mTime, mKey.mType, mKey.mValue, mKey.mVelocity, mKey.mEaseFactor);
}

void ComParamClearKey_cls::Apply(Parameters_cls& parameter) {
    Parameters_cls::State state = parameter.GetState();
    state.keys.assign(1, {});
    state.keys.front().Set(mTime, KeyFrame_cls::kHermiteAuto, mValue, 0.0, 0.0, false);
    parameter.SetState(state);
}
