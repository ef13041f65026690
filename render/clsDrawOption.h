#pragma once

#include <wx/string.h>

#include <algorithm>

#include "CONFITEM/clsConfItemList.h"

/// How particles are drawn in all views alike. One object, owned by the application core.
/// Threads: GUI thread.
class DrawOption_cls {
  public:
    enum SortOrder : unsigned int { kNoSort = 0, kSortTransparent = 1, kSortSolid = 2 };
    enum Classify : unsigned int { kAttribute0Only = 0, kAllAttributes = 1 };
    enum Shadow : unsigned int { kNoShadow = 0, kShadowVolume = 1 };

    DrawOption_cls() { SetToDefault(); }
    DrawOption_cls(const DrawOption_cls&) = delete;
    DrawOption_cls& operator=(const DrawOption_cls&) = delete;

    void SetToDefault();
    /// Only particles 0, this, twice this, ... are drawn. At least 1, whatever a project says.
    int GetStep() const { return std::max(mDownSizing.mValue, 1); }

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemINT_cls mDownSizing;
    ConfItemUINT_cls mSortOrder;
    ConfItemUINT_cls mClassify;
    ConfItemUINT_cls mShadow;

  private:
    ConfItemList_cls mItems;
};
