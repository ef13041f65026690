#include "pov/clsPovFormat.h"

void PovFormat_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mOutputFormat, "PovOutputFomat=", "0");  // projects carry this spelling
    mItems.Add(&mCameraWidth, "PovCameraWidth=", "640");
    mItems.Add(&mCameraHeight, "PovCameraHeight=", "480");
    mItems.Add(&mAntialias, "PovAntialias=", "0");
    mItems.Add(&mDisplay, "PovDisplay=", "1");
    mItems.Add(&mPauseWhenDone, "PovPauseWhenDone=", "0");
    mItems.Add(&mJitter, "PovJitter=", "0");
    mItems.Add(&mOutputAlpha, "PovOutputAlpha=", "0");
    mItems.Add(&mAntiAliasThreshold, "PovAntiAliasThreshold=", "0.15");
    mItems.Add(&mAntiAliasDepth, "PovAntiAliasDepth=", "3");
    mItems.Add(&mJitterAmount, "PovJitterAmount=", "1");
    mItems.Add(&mFastColoring, "PovFastColoring=", "1");
    mItems.Add(&mFileAbsolute, "PovFileAbsolute=", "0");
    mItems.Add(&mBoundingMethod, "PovBoundingMethod=", "1");
}
