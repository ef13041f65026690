#include "render/clsPanelShared.h"

void PanelShared_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mLayout, "ViewLayout=", "0");
    mItems.Add(&mBackground, "ViewBackground=", "0.02 0.02 0.035");
    mItems.Add(&mCartoonBoldness, "CartoonBoldness=", "0.3");
    mItems.Add(&mLegend, "ViewLegend=", "0");
    mItems.Add(&mLegendUnit, "ViewLegendUnit=", kNoUnit);
}
