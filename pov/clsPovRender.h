#pragma once

#include <vector>

#include "CONFITEM/clsConfItemList.h"

class TimeSettings_cls;

/// Which frames an animation render covers. Owned by PovRayCtrl_cls. Threads: GUI thread. Units: frames.
class PovRender_cls {
  public:
    enum Region : unsigned int { kWorkArea = 0, kActiveArea = 1, kCustom = 2 };

    PovRender_cls() { SetToDefault(); }
    PovRender_cls(const PovRender_cls&) = delete;
    PovRender_cls& operator=(const PovRender_cls&) = delete;

    void SetToDefault();
    /// The frames of the region, in order; those that the scene does not have are left out.
    std::vector<int> GetFrames(const TimeSettings_cls& timeline) const;

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mRegion;
    ConfItemINT_cls mCustomMin;
    ConfItemINT_cls mCustomMax;

  private:
    ConfItemList_cls mItems;
};
