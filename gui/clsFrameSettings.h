#pragma once

#include "CONFITEM/clsConfItemList.h"

/// What the main window keeps in the configuration file: the last project and the last picture. Exists
/// without a window too, so that a project keeps it. Owned by the application core. Threads: GUI thread.
class FrameSettings_cls {
  public:
    FrameSettings_cls() {
        mItems.Add(&mLastOpenedFileVHP, "LastOpenedFileVHP=", "None");
        mItems.Add(&mLastOpenedFileIMG, "LastOpenedFileIMG=", "None");
    }
    FrameSettings_cls(const FrameSettings_cls&) = delete;
    FrameSettings_cls& operator=(const FrameSettings_cls&) = delete;

    wxString SerializeForConfigure() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemSTR_cls mLastOpenedFileVHP;
    ConfItemSTR_cls mLastOpenedFileIMG;

  private:
    ConfItemList_cls mItems;
};
