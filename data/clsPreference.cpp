#include "data/clsPreference.h"

void Preference_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mMemoryLimit, "PREF_MEMORY_LIMIT=", "4096");
    mItems.Add(&mReaderThreads, "PREF_THREAD_IO=", "4");
    mItems.Add(&mSortType, "PREF_SORT_TYPE=", "0");
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
