#pragma once

#include "CONFITEM/clsConfItemList.h"

/// Size, file format and quality of the ray tracer's pictures. Owned by PovRayCtrl_cls.
/// Threads: GUI thread. Units: sizes in pixels.
class PovFormat_cls {
  public:
    /// Index into the list of file formats as the dialog shows them.
    enum Format : unsigned int {
        kPng8 = 0,
        kPng12 = 1,
        kPng16 = 2,
        kSystem = 3,
        kPpm = 4,
        kJpeg = 5,
        kExr = 6,
        kHdr = 7
    };

    PovFormat_cls() { SetToDefault(); }
    PovFormat_cls(const PovFormat_cls&) = delete;
    PovFormat_cls& operator=(const PovFormat_cls&) = delete;

    void SetToDefault();

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mOutputFormat;
    ConfItemINT_cls mCameraWidth;
    ConfItemINT_cls mCameraHeight;
    ConfItemBOOL_cls mAntialias;
    ConfItemBOOL_cls mDisplay;
    ConfItemBOOL_cls mPauseWhenDone;
    ConfItemBOOL_cls mJitter;
    ConfItemBOOL_cls mOutputAlpha;
    ConfItemFLOAT_cls mAntiAliasThreshold;
    ConfItemINT_cls mAntiAliasDepth;
    ConfItemFLOAT_cls mJitterAmount;
    ConfItemBOOL_cls mFastColoring;
    ConfItemBOOL_cls mFileAbsolute;  ///< absolute instead of relative paths in the option file
    ConfItemUINT_cls mBoundingMethod;

  private:
    ConfItemList_cls mItems;
};
