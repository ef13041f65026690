#pragma once

#include "gui/clsSettingsPage.h"

class PDataSeqCtrl_cls;
class Preference_cls;

/// The dialog page of the preferences: memory, threads, precision, pictures, mouse, autosave.
/// Owned by its parent window; what it shows outlives it. Threads: GUI thread.
class PreferenceGUI_cls : public SettingsPage_cls {
  public:
    static constexpr const char* kTitle = "Preferences";

    /// `apply` hands the preferences on; it is called after every change, undone ones included.
    PreferenceGUI_cls(wxWindow* parent, Preference_cls& preference, const PDataSeqCtrl_cls& data,
                      const std::function<void()>& apply);

  private:
    void AddMemory(const PDataSeqCtrl_cls& data);
    void AddMouse();

    Preference_cls& mPreference;
    const std::function<void()> mApply;
};
