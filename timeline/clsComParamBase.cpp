#include "timeline/clsComParamBase.h"

ComParamBase_cls::LookUp ComParamBase_cls::msLookUp;

void ComParamBase_cls::SetLookUp(LookUp lookUp) {
    msLookUp = std::move(lookUp);
}

ComParamBase_cls::ComParamBase_cls(Parameters_cls& parameter)
    : CommandItem_cls(kUpdates),
      mIdentifier(parameter.GetID()),
      mParameter(&parameter),
      mLife(parameter.GetLife()) {}

Parameters_cls* ComParamBase_cls::Find() const {
    if (msLookUp && !mIdentifier.empty()) {
        if (Parameters_cls* found = msLookUp(mIdentifier)) return found;
    }
    return mLife.expired() ? nullptr : mParameter;
}

void ComParamBase_cls::Execute(bool) {
    if (Parameters_cls* parameter = Find()) Apply(*parameter);
    UpdateBit();
}
