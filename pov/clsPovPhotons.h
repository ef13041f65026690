#pragma once

#include "CONFITEM/clsConfItemList.h"

/// Photon mapping of the ray tracer. Owned by PovRayCtrl_cls. Threads: GUI thread.
class PovPhotons_cls {
  public:
    PovPhotons_cls() { SetToDefault(); }
    PovPhotons_cls(const PovPhotons_cls&) = delete;
    PovPhotons_cls& operator=(const PovPhotons_cls&) = delete;

    void SetToDefault();

    bool IsOn() const { return mType.mValue != 0; }
    /// Photons have no lines in the option file.
    wxString GetStrPovIni() const { return {}; }
    /// The block of the scene's global settings; empty without photons.
    wxString GetStrScene() const;

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mType;  ///< 0: none
    ConfItemINT_cls mCount;  ///< in thousands
    ConfItemINT_cls mMaxTrace;

  private:
    ConfItemList_cls mItems;
};
