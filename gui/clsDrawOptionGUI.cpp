#include "gui/clsDrawOptionGUI.h"

#include <wx/choice.h>

#include "gui/clsWords.h"
#include "render/clsDrawOption.h"
#include "render/clsPanelShared.h"
#include "render/clsShadowSettings.h"

DrawOptionGUI_cls::DrawOptionGUI_cls(wxWindow* parent, DrawOption_cls& option, ShadowSettings_cls& shadow,
                                     PanelShared_cls& shared)
    : SettingsPage_cls(parent) {
    BeginGroup(_("Particles"));
    AddSlider(
        _("Downsize"),
        _("Only every so many-th particle is drawn, the others made wider and denser for it; 1 draws all"),
        {.low = 1.0, .high = 100.0, .logarithmic = true}, {.min = 1.0, .max = 1e6, .whole = true},
        BindNumber(_("Downsize"), option.mDownSizing.mValue));
    AddChoice(_("Zsort Type"),
              _("The order of drawing. For transparency: the farthest first. For solid objects: the nearest "
                "first, which saves what is hidden."),
              Words({_("No Sort (fast)"), _("Zsort (for transparency)"), _("Zsort (for solid object)")}),
              BindAs<unsigned int>(_("Zsort Type"), option.mSortOrder.mValue));
    AddChoice(_("Classification"),
              _("Whether each particle is drawn by the attribute of its type, or all by the first one"),
              Words({_("Use Attrib0 Only (fast)"), _("Use All Attrib")}),
              BindAs<unsigned int>(_("Classification"), option.mClassify.mValue));

    BeginGroup(_("Shadow"));
    AddChoice(_("Show Shadow"),
              _("Whether particles throw shadows on those behind them, away from the lights"),
              Words({_("No Shadow"), _("Shadow Volume")}),
              BindAs<unsigned int>(_("Show Shadow"), option.mShadow.mValue));
    NumberField_cls& length =
        AddNumber(_("Shadow Length"), _("How far a particle throws its shadow, in the data's length unit"),
                  {.min = 0.0}, BindNumber(_("Shadow Length"), shadow.mLength.mValue));
    SliderField_cls& darkness = AddSlider(
        _("Shadow Darkness"), _("0: shadows are not seen; 1: none of the light reaches into them"), {},
        {.min = 0.0, .max = 1.0, .step = 0.05}, BindNumber(_("Shadow Darkness"), shadow.mDarkness.mValue));
    AddRefresher([&option, &length, &darkness] {
        const bool shown = option.mShadow.mValue != DrawOption_cls::kNoShadow;
        length.Enable(shown);
        darkness.Enable(shown);
    });

    BeginGroup(_("All views"));
    AddColor(_("Background"), _("The colour behind everything"),
             BindColor(_("Background"), std::span(shared.mBackground.mValue).first(3)));
    AddSlider(_("Toon Outline"),
              _("How far the dark edge of the Toon shader reaches in: 0 no edge, 1 all dark"), {},
              {.min = 0.0, .max = 1.0, .step = 0.05},
              BindNumber(_("Toon Outline"), shared.mCartoonBoldness.mValue));
}
