#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <span>

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

    /// One file format: how the dialog calls it, its letter and extra line in the option file, and what the
    /// renderer appends to the picture's name (empty: the renderer takes no such format here).
    struct FormatRow {
        const char* label;
        const char* type;
        const char* extraLine;
        const char* extension;
    };
    static std::span<const FormatRow> GetFormats();
    /// The chosen format; the first one for numbers beyond the list.
    const FormatRow& GetFormat() const;

    /// What an option file says about one picture.
    struct Picture {
        wxString scene;  ///< path without extension, as the option file names it
        bool mayPause;   ///< somebody is there to end the pause
    };
    /// The option file up to the name of the picture.
    wxString GetStrPovFormat(const Picture& picture) const;
    /// Width and height that a renderer can do.
    wxSize GetSize() const;

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
