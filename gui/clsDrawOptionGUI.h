#pragma once

#include "gui/clsSettingsPage.h"

class DrawOption_cls;
class PanelShared_cls;
class ShadowSettings_cls;

/// The page of what all views draw alike: thinning, order, classification, shadows, background.
/// Owned by its parent window; the settings outlive it. Threads: GUI thread.
class DrawOptionGUI_cls : public SettingsPage_cls {
  public:
    DrawOptionGUI_cls(wxWindow* parent, DrawOption_cls& option, ShadowSettings_cls& shadow,
                      PanelShared_cls& shared);
};
