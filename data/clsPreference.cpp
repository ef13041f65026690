#include "data/clsPreference.h"

void Preference_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mMemoryLimit, "PREF_MEMORY_LIMIT=", "4096");
    mItems.Add(&mReaderThreads, "PREF_THREAD_IO=", "4");
    mItems.Add(&mSortType, "PREF_SORT_TYPE=", "0");
    mItems.Add(&mJpegQuality, "PREF_JPEG_QUALITY=", "92");
    mItems.Add(&mMouseTurn, "PREF_MOUSE_TURN=", "0");
    mItems.Add(&mMousePan, "PREF_MOUSE_PAN=", "1");
    mItems.Add(&mMouseZoom, "PREF_MOUSE_ZOOM=", "2");
    mItems.Add(&mAutosaveInterval, "PREF_AUTOSAVE_INTERVAL=", "1");
}

Preference_cls::MouseGesture Preference_cls::GetGesture(MouseGrip grip) const {
    if (mMouseTurn.mValue == grip) return MouseGesture::Turn;
    if (mMousePan.mValue == grip) return MouseGesture::Pan;
    if (mMouseZoom.mValue == grip) return MouseGesture::Zoom;
    // A drag with Shift pans where nothing else is said: there are mice with one button.
    return grip == kShiftLeft ? MouseGesture::Pan : MouseGesture::None;
}

int Preference_cls::GetMergeStep() const {
    switch (mSortType.mValue) {
        case kApproximate10:
            return 10;
        case kApproximate100:
            return 100;
        case kApproximate1000:
            return 1000;
        default:
            return 1;
    }
}
