#include "pov/clsPovRadiosity.h"

void PovRadiosity_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mType, "PovRadiosityType=", "0");
    mItems.Add(&mReuse, "PovRadiosityReuse=", "0");
    mItems.Add(&mPathDir, "PovRadiosityPathDir=", "");
    mPathDir.SetText("");
    mItems.Add(&mCount, "PovRadiosityCount=", "35");
    mItems.Add(&mError, "PovRadiosityError=", "1.8");
    mItems.Add(&mMinimumReuse, "PovRadiosityMinimumReuse=", "0.015");
    mItems.Add(&mRecursionLimit, "PovRadiosityRecursionLimit=", "3");
    mItems.Add(&mNearestCount, "PovRadiosityNearestCount=", "5");
    mItems.Add(&mPretraceStart, "PovRadiosityTraceStrat=", "0.08");  // projects carry this spelling
    mItems.Add(&mPretraceEnd, "PovRadiosityTraceEnd=", "0.04");
    mItems.Add(&mZeroAmbient, "PovRadiosityZeroAmbient=", "1");
    mItems.Add(&mMedia, "PovRadiosityMedia=", "0");
    mItems.Add(&mNormal, "PovRadiosityNormal=", "1");
    mItems.Add(&mHighReproduce, "PovRadHighReproduce=", "0");
}
