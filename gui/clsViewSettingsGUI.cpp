#include "gui/clsViewSettingsGUI.h"

#include <wx/choice.h>

#include "gui/clsViewLayout.h"
#include "gui/clsWords.h"
#include "render/clsPanelSettings.h"
#include "render/clsPanelShared.h"

namespace {

constexpr double kLimitAngle = 360.0;

}  // namespace

ViewSettingsGUI_cls::ViewSettingsGUI_cls(wxWindow* parent, const Panels& panels, PanelShared_cls& shared)
    : SettingsPage_cls(parent), mPanels(panels) {
    AddChoice(_("Layout"), _("How many view panels there are, and how they are arranged"),
              Words(ViewLayout::Names()), BindAs<unsigned int>(_("Layout"), shared.mLayout.mValue));
    // Which panel is looked at is no setting of the project and no step of the undo list.
    AddChoice(_("Panel"), _("The view panel that the settings below belong to"),
              Words({_("Panel 1"), _("Panel 2"), _("Panel 3"), _("Panel 4")}),
              {[this] { return mPanel; },
               [this](const unsigned int& panel) {
                   mPanel = panel;
                   RefreshFromModel();
               }});
    AddProjection();
    AddLegend(shared);
    BeginColumn();
    AddShown();
}

template <class Value, class Stored>
Setting_cls<Value> ViewSettingsGUI_cls::BindPanel(const wxString& name, Stored PanelSettings_cls::*item) {
    return {
        [this, item] { return static_cast<Value>((Panel().*item).mValue); },
        [this, name, item](const Value& value) { BindAs<Value>(name, (Panel().*item).mValue).set(value); }};
}

void ViewSettingsGUI_cls::AddSwitch(const wxString& label, const wxString& tooltip,
                                    ConfItemBOOL_cls PanelSettings_cls::*item) {
    AddCheck(label, tooltip, BindPanel<bool>(label, item));
}

void ViewSettingsGUI_cls::AddProjection() {
    BeginGroup(_("Projection"));
    AddChoice(_("Geometry"), _("How the scene is projected on the picture"),
              Words(PanelSettings_cls::kGeometryNames),
              BindPanel<unsigned int>(_("Geometry"), &PanelSettings_cls::mGeometry));
    SliderField_cls& angle = AddSlider(
        _("Angle"),
        _("View angle in degrees. Perspective views end at 120; a view that follows the camera path has "
          "the angle of the path."),
        {.low = 5.0, .high = 120.0}, {.min = 0.1, .max = kLimitAngle, .unit = _("deg"), .step = 1.0},
        BindPanel<double>(_("Angle"), &PanelSettings_cls::mPersAngle));
    NumberField_cls& scale = AddNumber(
        _("Scale"), _("Orthographic views: the magnification; larger shows a smaller part of the scene"),
        {.min = 1e-6}, BindPanel<double>(_("Scale"), &PanelSettings_cls::mOrthoScale));
    AddNumbers(_("Depth range"),
               _("Nearest and farthest distance that is drawn, in the data's length unit. Perspective only."),
               {.min = 1e-9},
               {BindPanel<double>(_("Depth range"), &PanelSettings_cls::mDepthMin),
                BindPanel<double>(_("Depth range"), &PanelSettings_cls::mDepthMax)});
    AddRefresher([this, &angle, &scale] {
        const bool orthographic = Panel().mGeometry.mValue == PanelSettings_cls::kOrthographic;
        angle.Enable(!orthographic);
        scale.Enable(orthographic);
    });
    AddChoice(_("Camera"),
              _("Whether the panel looks through the camera of the film or has a view of its own"),
              Words({_("Follows the camera path"), _("Free view")}),
              BindPanel<unsigned int>(_("Camera"), &PanelSettings_cls::mDisplayMode));
    AddCheck(_("Pivot Follows Anchor"), _("Turning by the mouse goes around the anchor"),
             BindPanel<bool>(_("Pivot Follows Anchor"), &PanelSettings_cls::mPivotMode));
}

void ViewSettingsGUI_cls::AddShown() {
    BeginGroup(_("Shown"));
    AddSwitch(_("Show/Hide Message"), _("Time and messages over the picture"),
              &PanelSettings_cls::mShowMessage);
    AddSwitch(_("Show/Hide Item"), _("Anchor, lights, cameras and the periodic box"),
              &PanelSettings_cls::mShowItems);
    AddSwitch(_("Show/Hide Data"), _("The particles"), &PanelSettings_cls::mShowData);
    AddSwitch(_("Show other cameras"), _("Where the other panels look from"),
              &PanelSettings_cls::mShowOtherCam);

    BeginGroup(_("Grid"));
    AddSwitch(_("Show/Hide Grid"), _("A grid around the anchor"), &PanelSettings_cls::mShowGrid);
    AddChoice(_("Grid kind"), _("The planes in which the grid lies"),
              Words({_("None"), _("x-y"), _("x-z"), _("y-z"), _("All three"), _("Axes")}),
              BindPanel<unsigned int>(_("Grid kind"), &PanelSettings_cls::mGridType));
    AddSwitch(_("Smooth lines"), _("Antialiased grid lines"), &PanelSettings_cls::mGridAntialias);
    AddSwitch(_("Numbers"), _("Coordinates beside the grid, in the data's length unit"),
              &PanelSettings_cls::mGridShowTag);
}

void ViewSettingsGUI_cls::AddLegend(PanelShared_cls& shared) {
    BeginGroup(_("All panels"));
    AddChoice(_("Legend"),
              _("A colour bar with the values of this attribute's curve, in the views and in saved pictures"),
              Words({_("None"), "Attrib 0", "Attrib 1", "Attrib 2", "Attrib 3"}),
              BindAs<unsigned int>(_("Legend"), shared.mLegend.mValue));
    AddText(_("Legend unit"), _("The unit of the values, e.g. km/s, shown beside their name; - for none"),
            BindText(_("Legend unit"), shared.mLegendUnit));
}
