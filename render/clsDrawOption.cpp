#include "render/clsDrawOption.h"

void DrawOption_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mDownSizing, "DownSizing=", "1");
    mItems.Add(&mSortOrder, "SortOrder=", "0");
    mItems.Add(&mClassify, "Classify=", "1");
    mItems.Add(&mShadow, "Shadow=", "0");
}
