#pragma once

#include "gui/clsSettingsPage.h"
#include "scene/clsLightSRC.h"

class LightSRCCtrl_cls;

/// The dialog page of the light sources, one light at a time. Directions, positions and colours may be
/// animated: a change then becomes a key at the current time.
/// Owned by its parent window; the lights outlive it. Threads: GUI thread.
class LightSRCGUI_cls : public SettingsPage_cls {
  public:
    static constexpr const char* kTitle = "Light Sources";

    LightSRCGUI_cls(wxWindow* parent, LightSRCCtrl_cls& lights);

  private:
    LightSRC_cls& Light() const;
    void AddVector(const wxString& label, const wxString& tooltip, LightSRC_cls::Group group);
    void AddLightColor(const wxString& label, const wxString& tooltip, LightSRC_cls::Group group);
    /// Sets all three components of the light that is chosen.
    void SetGroup(const wxString& name, LightSRC_cls::Group group, const std::array<double, 3>& values);
    std::array<double, 3> GetGroup(LightSRC_cls::Group group) const;

    LightSRCCtrl_cls& mLights;
    unsigned int mNumber = 0;
};
