#pragma once

#include <array>

#include "gui/clsSettingsPage.h"

class PanelSettings_cls;
class PanelShared_cls;

/// The dialog page of the view panels: their arrangement, and of one panel at a time what it shows and how it
/// projects.
/// Owned by its parent window; the settings outlive it. Threads: GUI thread.
class ViewSettingsGUI_cls : public SettingsPage_cls {
  public:
    static constexpr const char* kTitle = "View Settings";
    using Panels = std::array<PanelSettings_cls*, 4>;

    ViewSettingsGUI_cls(wxWindow* parent, const Panels& panels, PanelShared_cls& shared);

  private:
    void AddProjection();
    void AddShown();
    void AddLegend(PanelShared_cls& shared);
    PanelSettings_cls& Panel() const { return *mPanels[mPanel]; }

    /// A setting of the panel that is chosen at the time.
    template <class Value, class Stored>
    Setting_cls<Value> BindPanel(const wxString& name, Stored PanelSettings_cls::*item);
    void AddSwitch(const wxString& label, const wxString& tooltip, ConfItemBOOL_cls PanelSettings_cls::*item);

    const Panels mPanels;
    unsigned int mPanel = 0;
};
