#pragma once

#include "CONFITEM/clsConfItemList.h"

/// Settings that all view panels share. One object, owned by the application core. Threads: GUI thread.
class PanelShared_cls {
  public:
    /// "1 panel", "2 panels (vertical)", "2 panels (horizontal)", "4 panelsA", "4 panelsB".
    enum Layout : unsigned int { kOne = 0, kTwoVertical = 1, kTwoHorizontal = 2, kFourA = 3, kFourB = 4 };

    /// mLegend: none, or 1 more than the number of the attribute whose colours it explains.
    static constexpr unsigned int kNoLegend = 0;
    /// The text of mLegendUnit that stands for no unit.
    static constexpr const char* kNoUnit = "-";

    PanelShared_cls() { SetToDefault(); }
    PanelShared_cls(const PanelShared_cls&) = delete;
    PanelShared_cls& operator=(const PanelShared_cls&) = delete;

    void SetToDefault();

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mLayout;
    ConfItemFLOATARRAY_cls mBackground;  ///< red, green, blue, 0 to 1
    ConfItemFLOAT_cls mCartoonBoldness;  ///< how far the toon shader's outline reaches in
    ConfItemUINT_cls mLegend;
    ConfItemSTR_cls mLegendUnit;

  private:
    ConfItemList_cls mItems;
};
