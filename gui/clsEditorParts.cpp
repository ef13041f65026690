#include "gui/clsEditorParts.h"

#include "data/clsPDataSeqCtrl.h"
#include "gui/clsColorCurveGUI.h"
#include "gui/clsDrawOptionGUI.h"
#include "gui/clsFrameContext.h"
#include "gui/clsGLAttributeGUI.h"
#include "gui/clsLightSRCGUI.h"
#include "gui/clsPeriodicBoundaryGUI.h"
#include "gui/clsPreferenceGUI.h"
#include "gui/clsSettingsDialog.h"
#include "gui/clsViewSettingsGUI.h"
#include "interp/clsSnapData.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsCurveValues.h"
#include "render/clsGLAttribute.h"
#include "seam/clsEventSink.h"
#include "timeline/clsTimeCtrl.h"

wxWindow* MakeAttributePage(wxWindow* parent, FrameContext_cls& context, int index) {
    return new GLAttributeGUI_cls(parent, context.seqCtrl.GetActive().GetAttribute(index),
                                  context.colorCurveCtrl);
}

wxWindow* MakeDrawOptionPage(wxWindow* parent, FrameContext_cls& context) {
    return new DrawOptionGUI_cls(parent, context.drawOption, context.shadowSettings, context.panelShared);
}

void OpenColorCurveEditor(wxWindow* parent, FrameContext_cls& context) {
    PDataSequence_cls& sequence = context.seqCtrl.GetActive();
    // The controller shows the editor when it gets a curve.
    if (!context.colorCurveCtrl.GetLinked()) {
        context.colorCurveCtrl.LinkColorCurve(sequence.GetAttribute(0).GetMainCurve());
        return;
    }
    ColorCurveGUI_cls::Curves curves;
    for (const auto& attribute : sequence.GetAttributes())
        for (int curve = 0; curve < SnapAttribute_cls::kCurveCount; ++curve)
            curves.push_back(&attribute->GetCurve(curve));
    SettingsDialog_cls& dialog =
        SettingsDialog_cls::Open(*parent, ColorCurveGUI_cls::kTitle, [&](wxWindow* window) {
            return new ColorCurveGUI_cls(window, context.colorCurveCtrl, std::move(curves));
        });
    dynamic_cast<ColorCurveGUI_cls&>(dialog.GetPage()).ShowLinked();
}

void OpenViewSettings(wxWindow* parent, FrameContext_cls& context) {
    SettingsDialog_cls::Open(*parent, ViewSettingsGUI_cls::kTitle, [&context](wxWindow* window) {
        return new ViewSettingsGUI_cls(window, context.panelSettings, context.panelShared);
    });
}

void OpenLightSources(wxWindow* parent, FrameContext_cls& context) {
    SettingsDialog_cls::Open(*parent, LightSRCGUI_cls::kTitle, [&context](wxWindow* window) {
        return new LightSRCGUI_cls(window, context.lightSRCCtrl);
    });
}

void OpenPeriodicBoundary(wxWindow* parent, FrameContext_cls& context) {
    SettingsDialog_cls::Open(*parent, PeriodicBoundaryGUI_cls::kTitle, [&context](wxWindow* window) {
        return new PeriodicBoundaryGUI_cls(window, context.periodicBoundary, [&context] {
            // The rates in memory were made by the rule before.
            context.waitThreadFinish();
            context.seqCtrl.ClearData(PDataSeqCtrl_cls::kActive, PDataSequence_cls::kAll, false);
            EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
        });
    });
}

void OpenPreferences(wxWindow* parent, FrameContext_cls& context) {
    SettingsDialog_cls::Open(*parent, PreferenceGUI_cls::kTitle, [&context](wxWindow* window) {
        return new PreferenceGUI_cls(window, context.preference, context.seqCtrl, context.applyPreferences);
    });
}

void ConnectColorCurves(wxWindow* frame, FrameContext_cls& context) {
    context.colorCurveCtrl.SetObserver([frame, &context] {
        if (context.colorCurveCtrl.GetLinked()) OpenColorCurveEditor(frame, context);
    });
    context.colorCurveCtrl.SetValueSource(
        [&context](const ColorCurve_cls& curve) -> ColorCurveCtrl_cls::Values {
            const double position = context.timeCtrl.GetRemappedIndexDouble(-1, -1);
            const auto [index, fraction] = context.seqCtrl.GetActive().GetPlace(position);
            const bool ready =
                context.seqCtrl.IsTheIndexReady(index, fraction, context.timeCtrl.IsInterpolateAlways());
            // The window is not to wait for a histogram.
            if (!ready) return std::nullopt;
            const SnapData_cls* state = context.prepareState(position);
            if (!state) return std::vector<float>();
            return CollectCurveValues(curve, context.seqCtrl.GetActive(), *state, context.drawOption);
        });
}
