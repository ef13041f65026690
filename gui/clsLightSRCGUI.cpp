#include "gui/clsLightSRCGUI.h"

#include <wx/checkbox.h>
#include <wx/choice.h>

#include "gui/clsWords.h"
#include "scene/clsLightSRCCtrl.h"
#include "timeline/clsParamEdit.h"

LightSRCGUI_cls::LightSRCGUI_cls(wxWindow* parent, LightSRCCtrl_cls& lights)
    : SettingsPage_cls(parent), mLights(lights) {
    wxArrayString names;
    for (int i = 0; i < LightSRCCtrl_cls::kLights; ++i) names.Add(wxString::Format(_("Light %d"), i));
    // Which light is looked at is no setting of the project and no step of the undo list.
    AddChoice(_("Light"), _("The light that the settings below belong to"), names,
              {[this] { return mNumber; },
               [this](const unsigned int& number) {
                   mNumber = number;
                   RefreshFromModel();
               }});
    const auto changed = [&lights] { lights.UpdateShownTracks(); };
    AddCheck(_("Light is on"), _("Whether this light shines"),
             {[this] { return Light().mVisible.mValue; },
              [this, changed](const bool& on) {
                  BindAs<bool>(_("Light is on"), Light().mVisible.mValue, changed).set(on);
              }});
    AddChoice(_("Kind"), _("Parallel rays from infinitely far, or rays from a place"),
              Words({_("From a direction"), _("From a position")}),
              {[this] { return Light().mType.mValue; },
               [this, changed](const unsigned int& type) {
                   BindAs<unsigned int>(_("Kind"), Light().mType.mValue, changed).set(type);
               }});
    BeginGroup(_("Place"));
    AddVector(_("Direction"), _("x, y and z of where the rays come from; the length does not matter"),
              LightSRC_cls::kDirection);
    AddVector(_("Position"), _("x, y and z in the data's length unit"), LightSRC_cls::kPosition);
    BeginGroup(_("Color"));
    AddLightColor(_("Ambient"), _("What reaches every place of a sphere, also in the shade"),
                  LightSRC_cls::kAmbient);
    AddLightColor(_("Diffuse"), _("What a sphere scatters on the lit side"), LightSRC_cls::kDiffuse);
    AddLightColor(_("Specular"), _("The highlight"), LightSRC_cls::kSpecular);
}

LightSRC_cls& LightSRCGUI_cls::Light() const {
    return mLights.GetLight(static_cast<int>(mNumber));
}

std::array<double, 3> LightSRCGUI_cls::GetGroup(LightSRC_cls::Group group) const {
    return Light().GetVector(group, Parameters_cls::msCurrentDoubleIndex);
}

void LightSRCGUI_cls::SetGroup(const wxString& name, LightSRC_cls::Group group,
                               const std::array<double, 3>& values) {
    ParamGroup_cls& parameters = Light().GetGroup(group);
    ParamEdit_cls::ChangeGroup(name, parameters, [&] { parameters.SetKeyFrame(values.data()); });
}

void LightSRCGUI_cls::AddVector(const wxString& label, const wxString& tooltip, LightSRC_cls::Group group) {
    std::vector<Setting_cls<double>> settings;
    for (size_t axis = 0; axis < 3; ++axis) {
        settings.push_back({[this, group, axis] { return GetGroup(group)[axis]; },
                            [this, label, group, axis](const double& value) {
                                std::array<double, 3> values = GetGroup(group);
                                values[axis] = value;
                                SetGroup(label, group, values);
                            }});
    }
    AddNumbers(label, tooltip, {}, settings);
}

void LightSRCGUI_cls::AddLightColor(const wxString& label, const wxString& tooltip,
                                    LightSRC_cls::Group group) {
    AddColor(label, tooltip,
             {[this, group] {
                  const std::array<double, 3> values = GetGroup(group);
                  return Color4{static_cast<float>(values[0]), static_cast<float>(values[1]),
                                static_cast<float>(values[2]), 1.0F};
              },
              [this, label, group](const Color4& color) {
                  SetGroup(label, group, {color[0], color[1], color[2]});
              }});
}
