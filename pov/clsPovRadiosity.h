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

    bool IsOn() const { return mType.mValue != 0; }
    /// Lines of the option file; none without radiosity. Where relative names are wanted, the working
    /// directory (which ends in "/") in the path of the radiosity file becomes "./"; empty: names stay.
    wxString GetStrPovIni(const wxString& relativeTo) const;
    /// The block of the scene's global settings; empty without radiosity.
    wxString GetStrScene() const;
    /// True when the path names a file and can stand between double quotes.
    bool IsRadiosityFormatOK() const;

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
    ConfItemUINT_cls mHighReproduce;  ///< 0: off

  private:
    ConfItemList_cls mItems;
};
