#include "gui/clsFrameParts.h"

#include <wx/translation.h>

#include "data/clsPDataSeqCtrl.h"
#include "gui/clsEditorParts.h"
#include "gui/clsFrameContext.h"
#include "gui/clsInformationGUI.h"
#include "gui/clsPovRayGUI.h"
#include "gui/clsSceneGUI.h"
#include "gui/clsTimelinePanel.h"

const std::vector<FramePage_cls>& FramePages() {
    const auto attribute = [](int index) -> FramePage_cls {
        return {wxString::Format("Attrib %d", index), [index](wxWindow* parent, FrameContext_cls& context) {
                    return MakeAttributePage(parent, context, index);
                }};
    };
    static const std::vector<FramePage_cls> pages = {
        attribute(0), attribute(1), attribute(2), attribute(3), {_("Draw"), MakeDrawOptionPage}};
    return pages;
}

const std::vector<FrameDialog_cls>& FrameDialogs() {
    using Menu = FrameDialog_cls::Menu;
    static const std::vector<FrameDialog_cls> dialogs = {
        {Menu::Edit, _("&Preferences...\tCtrl+,"), _("Memory, threads, pictures, mouse and autosave"),
         OpenPreferences},
        {Menu::View, _("View &Settings..."), _("What the view panels show and how they project"),
         OpenViewSettings},
        {Menu::View, _("&Light Sources..."), _("Lights of spheres: kind, place and colours"),
         OpenLightSources},
        {Menu::View, _("&Color Curve Editor..."), _("Colours by value: keys, scaling and templates"),
         OpenColorCurveEditor},
        {Menu::Data, _("&Information...\tCtrl+I"), _("What there is to know about the data and this frame"),
         OpenInformation},
        {Menu::Data, _("&Periodic Boundary Condition..."), _("The box of periodic data"),
         OpenPeriodicBoundary},
        {Menu::Render, _("&POV-Ray..."), _("Ray-traced pictures: options, scenes and renders"), OpenPovRay},
        {Menu::Animation, _("&Scene..."), _("Scene length, work area, and what happens to keys"),
         [](wxWindow* parent, FrameContext_cls& context) {
             SceneGUI_cls(parent, context.timeCtrl, context.seqCtrl.GetActive().GetSeqLength()).ShowModal();
         }},
    };
    return dialogs;
}

wxWindow* MakeBottomHalf(wxWindow* parent, FrameContext_cls& context) {
    auto* panel = new TimelinePanel_cls(parent, context.timeCtrl, context.timeGroups);
    panel->ServeGroups(context.paramHost);
    return panel;
}
