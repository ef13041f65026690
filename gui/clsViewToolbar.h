#pragma once

#include <wx/panel.h>

#include <functional>
#include <vector>

#include "CONFITEM/clsConfItem.h"
#include "gui/clsPanelCamera.h"
#include "gui/clsSettingsView.h"

class NumberField_cls;
class wxBoxSizer;
class wxChoice;
class wxToggleButton;

/// The slim row above a view: its geometry and angle, whose camera it shows, Fit and Key, and what is shown.
/// Changes of settings are steps of the undo list. Owned by its view panel. Threads: GUI thread.
class ViewToolbar_cls : public wxPanel, public SettingsView_cls {
  public:
    ViewToolbar_cls(wxWindow* parent, PanelSettings_cls& panel, PanelCamera_cls& camera);

    void ShowSettings(std::uint64_t updateBits) override;
    /// Marks the panel that the keyboard acts on.
    void ShowActive(bool active);

  private:
    struct Switch {
        wxToggleButton* button;
        const ConfItemBOOL_cls* setting;
    };

    void AddGeometry();
    void AddCameraChoice();
    void AddAngle();
    void AddButton(const wxString& icon, const wxString& name, const wxString& tip,
                   std::function<void()> action);
    void AddSwitch(const wxString& icon, const wxString& tip, ConfItemBOOL_cls& setting);
    void ChooseCamera(int choice);
    /// Leaves out what a narrow view has no room for, the least needed first.
    void MakeRoom();

    PanelSettings_cls& mPanel;
    PanelCamera_cls& mCamera;
    wxBoxSizer* mRow;
    wxChoice* mGeometry = nullptr;
    wxChoice* mWhose = nullptr;
    NumberField_cls* mAngle = nullptr;
    wxWindow* mMark = nullptr;
    std::vector<Switch> mSwitches;
};
