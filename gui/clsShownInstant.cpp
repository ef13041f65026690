#include "gui/clsShownInstant.h"

#include "data/clsPDataSeqCtrl.h"
#include "interp/clsSnapData.h"
#include "interp/clsThreadInterpolator.h"
#include "scene/clsViewCamera.h"
#include "timeline/clsTimeCtrl.h"

bool ShownInstant_cls::MayPrepare(const FrameContext_cls& context) {
    return !GbGLLockForLoadingData.load(std::memory_order_acquire) &&
           !GbGLLockForInterplateData.load(std::memory_order_acquire) &&
           !context.projectLoading.load(std::memory_order_acquire);
}

bool ShownInstant_cls::IsReady() {
    const TimeCtrl_cls& time = mContext.timeCtrl;
    const PDataSequence_cls& data = mContext.seqCtrl.GetActive();
    if (data.GetSeqLength() == 0) return true;
    const auto [index, fraction] = data.GetPlace(time.GetRemappedIndexDouble());
    return mContext.seqCtrl.IsTheIndexReady(index, fraction, time.IsInterpolateAlways());
}

const SnapData_cls* ShownInstant_cls::Get() {
    if (!MayPrepare()) return mState;
    const TimeCtrl_cls& time = mContext.timeCtrl;
    const double position = time.GetRemappedIndexDouble();
    const bool same = mFresh && position == mPosition && time.GetDoubleIndex() == mTime;
    // The particles may have left the memory since.
    const bool held = !mState || mState->GetCount() > 0;
    if ((same && held) || !IsReady()) return mState;
    mState = mContext.prepareState(position);
    mFresh = true;
    mPosition = position;
    mTime = time.GetDoubleIndex();
    if (mState && mState->GetCount() > 0 && !mFirstBounds) {
        mFirstBounds = BoundsOf(*mState);
        mFirstSeen(*mState);
        // With the look that they got.
        if (!mFresh) return Get();
    }
    return mState;
}

void ShownInstant_cls::Invalidate() {
    if (mCameraMoves == 0) mFresh = false;
}

void ShownInstant_cls::Forget() {
    mFresh = false;
    mState = nullptr;
    mFirstBounds.reset();
}
