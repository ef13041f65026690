#include "gui/clsPeriodicBoundaryGUI.h"

#include <wx/choice.h>

#include "gui/clsWords.h"
#include "interp/clsPeriodicBoundary.h"

PeriodicBoundaryGUI_cls::PeriodicBoundaryGUI_cls(wxWindow* parent, PeriodicBoundary_cls& periodic,
                                                 const std::function<void()>& changed)
    : SettingsPage_cls(parent) {
    const auto vector = [&changed](const wxString& name, ConfItemFLOATARRAY_cls& item) {
        std::vector<Setting_cls<double>> settings;
        for (size_t axis = 0; axis < 3; ++axis)
            settings.push_back(BindNumber(name, item.mValue[axis], changed));
        return settings;
    };
    AddChoice(
        _("Periodic Type"), _("Along which axes the box repeats"),
        Words({_("No Periodic Boundary Condition"), _("Periodic in x-y plane"), _("Periodic in xyz space")}),
        BindAs<unsigned int>(_("Periodic Type"), periodic.mType.mValue, changed));
    wxChoice& effect = AddChoice(
        _("Periodic Effect"),
        _("A particle that crosses the boundary between two snapshots goes the short way, or stands "
          "still until the next snapshot"),
        Words({_("Guess velocity"), _("Force velocity to be 0")}),
        BindAs<unsigned int>(_("Periodic Effect"), periodic.mEffect.mValue, changed));
    AddRefresher(
        [&effect, &periodic] { effect.Enable(periodic.mType.mValue != PeriodicBoundary_cls::kNone); });

    BeginGroup(_("Box"));
    AddNumbers(_("Factor"),
               _("Multiplies the x, y and z of the edges below; the box is as long as the product. 1 leaves "
                 "the edges as they are."),
               {.min = 0.0}, vector(_("Factor"), periodic.mSize));
    const std::array<wxString, 3> edges = {_("First edge"), _("Second edge"), _("Third edge")};
    for (size_t k = 0; k < edges.size(); ++k) {
        AddNumbers(
            edges[k],
            _("x, y and z of the edge in the data's length unit. Particles wrap by the x of the first, the "
              "y of the second and the z of the third."),
            {}, vector(edges[k], periodic.mBaseVector[k]));
    }
}
