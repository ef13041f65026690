#pragma once

#include <array>

#include "CONFITEM/clsConfItemList.h"

/// What one view panel shows and how it projects. Four belong to the panels of the window; owned by the
/// application core, so that a project holds them without a window too. A project stores them and does not
/// restore them: which panels are open, and what for, belongs to the session. Threads: GUI thread. Units:
/// angles in degrees, depths in the data's own lengths.
class PanelSettings_cls {
  public:
    static constexpr int kPanels = 4;
    /// Number of the canvas that is never shown.
    static constexpr unsigned int kOffscreenPanel = 4;
    enum Geometry : unsigned int { kPerspective = 0, kOrthographic = 1, kFisheye = 2, kPanoramic = 3 };

    /// The names that the user chooses from, in the order of the values.
    static constexpr std::array<const char*, 4> kGeometryNames = {"Perspective", "Orthographic", "Fisheye",
                                                                  "Panoramic"};

    /// The number is part of the keys.
    explicit PanelSettings_cls(unsigned int panel) : mPanel(panel) { SetToDefault(); }
    PanelSettings_cls(const PanelSettings_cls&) = delete;
    PanelSettings_cls& operator=(const PanelSettings_cls&) = delete;

    void SetToDefault();

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemBOOL_cls mShowMessage;
    ConfItemBOOL_cls mShowItems;
    ConfItemBOOL_cls mShowGrid;
    ConfItemBOOL_cls mShowData;
    ConfItemFLOAT_cls mPersAngle;
    ConfItemFLOAT_cls mOrthoScale;
    ConfItemBOOL_cls mShowOtherCam;
    ConfItemBOOL_cls mDrawItemByXOR;
    ConfItemUINT_cls mGeometry;
    ConfItemUINT_cls mDisplayMode;
    ConfItemUINT_cls mPivotMode;
    ConfItemUINT_cls mPathIndex;
    ConfItemUINT_cls mGridType;
    ConfItemBOOL_cls mGridAntialias;
    ConfItemBOOL_cls mGridShowTag;
    ConfItemFLOAT_cls mDepthMin;
    ConfItemFLOAT_cls mDepthMax;

  private:
    const unsigned int mPanel;
    ConfItemList_cls mItems;
};
