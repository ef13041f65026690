#pragma once

#include "CONFITEM/clsConfItemList.h"

/// Global settings of the ray tracer's scene. Owned by PovRayCtrl_cls. Threads: GUI thread.
class PovAdvanced_cls {
  public:
    PovAdvanced_cls() { SetToDefault(); }
    PovAdvanced_cls(const PovAdvanced_cls&) = delete;
    PovAdvanced_cls& operator=(const PovAdvanced_cls&) = delete;

    void SetToDefault();

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    /// How often a ray is reflected or refracted before it ends: rays pass through crowds of transparent
    /// spheres, so more than the renderer's own 5.
    ConfItemINT_cls mMaxTraceLevel;

  private:
    ConfItemList_cls mItems;
};
