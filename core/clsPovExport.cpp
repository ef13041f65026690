#include "core/clsPovExport.h"

#include "core/clsMain.h"
#include "pov/clsPovScene.h"

PovExport_cls::PovExport_cls(Main_cls& main, StateSource source) : mMain(main), mSource(std::move(source)) {
    mMain.GetPovRayCtrl().SetSceneWriter(
        [this](int frame, const wxString& name, bool first, const PovRayCtrl_cls::Progress& progress) {
            return WriteScene(frame, name, first, progress);
        });
}

PovExport_cls::~PovExport_cls() {
    mMain.GetPovRayCtrl().AbortRenderPovAnim();
    mMain.GetPovRayCtrl().SetSceneWriter({});
}

void PovExport_cls::PlaceCamera() {
    // A camera that nobody has placed depends on the first data only, as in pictures of the view.
    const PanelSettings_cls& panel = mMain.GetPanelSettings(0);
    mFitted.reset();
    if (!IsCameraFree(mMain.GetCameraPath(), panel)) return;
    if (const SnapData_cls* state = mSource(0.0)) mFitted = FitPanel(*state, panel);
}

wxString PovExport_cls::WriteScene(int frame, const wxString& name, bool first,
                                   const PovRayCtrl_cls::Progress& progress) {
    if (first) PlaceCamera();
    const TimeCtrl_cls& timeline = mMain.GetTimeCtrl();
    const double time = timeline.GetDoubleIndex(frame, 0);
    const PanelSettings_cls& panel = mMain.GetPanelSettings(0);
    const wxSize size = mMain.GetPovRayCtrl().GetFormat().GetSize();
    const SceneView_cls view{.mPanel = panel,
                             .mCamera = ChooseCamera(mMain.GetCameraPath(), panel, time, mFitted),
                             .mTime = time,
                             .mState = mSource(timeline.GetRemappedIndexDouble(frame, 0)),
                             .mWidth = size.x,
                             .mHeight = size.y};
    return PovScene_cls({mMain.GetSceneLinks(), mMain.GetPovRayCtrl(), mMain.GetCameraPath()})
        .Write(view, frame, name, first, progress);
}
