#pragma once

class PovRayCtrl_cls;
class SettingsPage_cls;
class wxWindow;

/// The pages of the POV-Ray dialog that only hold settings. Owned by their parent window; the settings
/// outlive them. Threads: GUI thread.

/// Where the renderer is and works, with a word beside each path whether it is there, and file names.
SettingsPage_cls* MakePovPathPage(wxWindow* parent, PovRayCtrl_cls& control);
/// Format, size and quality.
SettingsPage_cls* MakePovPicturePage(wxWindow* parent, PovRayCtrl_cls& control);
/// Radiosity and photons.
SettingsPage_cls* MakePovLightPage(wxWindow* parent, PovRayCtrl_cls& control);
/// Which frames an animation covers.
SettingsPage_cls* MakePovAnimationPage(wxWindow* parent, PovRayCtrl_cls& control);
