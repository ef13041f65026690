#pragma once

#include "CONFITEM/clsConfItemList.h"

/// How shadow volumes are made, in all view panels alike. One object, owned by the application core.
/// Threads: GUI thread. Units: lengths in the data's own.
class ShadowSettings_cls {
  public:
    ShadowSettings_cls() { SetToDefault(); }
    ShadowSettings_cls(const ShadowSettings_cls&) = delete;
    ShadowSettings_cls& operator=(const ShadowSettings_cls&) = delete;

    void SetToDefault();

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemFLOAT_cls mLength;    ///< how far a particle throws its shadow
    ConfItemFLOAT_cls mDarkness;  ///< 0: no shadow, 1: no light of the source in it

  private:
    ConfItemList_cls mItems;
};
