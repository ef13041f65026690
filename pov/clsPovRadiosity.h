#pragma once

#include "CONFITEM/clsConfItemList.h"

/// Indirect light of the ray tracer. Owned by PovRayCtrl_cls. Threads: GUI thread.
class PovRadiosity_cls {
  public:
    enum Reuse : unsigned int { kNoReuse = 0, kToFile = 1, kFromFile = 2 };

    PovRadiosity_cls() { SetToDefault(); }
    PovRadiosity_cls(const PovRadiosity_cls&) = delete;
    PovRadiosity_cls& operator=(const PovRadiosity_cls&) = delete;

    void SetToDefault();

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mType;  ///< 0: none
    ConfItemUINT_cls mReuse;
    ConfItemSTR_cls mPathDir;
    ConfItemINT_cls mCount;
    ConfItemFLOAT_cls mError;
    ConfItemFLOAT_cls mMinimumReuse;
    ConfItemINT_cls mRecursionLimit;
    ConfItemINT_cls mNearestCount;
    ConfItemFLOAT_cls mPretraceStart;
    ConfItemFLOAT_cls mPretraceEnd;
    ConfItemBOOL_cls mZeroAmbient;
    ConfItemBOOL_cls mMedia;
    ConfItemBOOL_cls mNormal;
    ConfItemUINT_cls mHighReproduce;

  private:
    ConfItemList_cls mItems;
};
