#include "core/clsPovExport.h"

#include "core/clsMain.h"
#include "pov/clsPovScene.h"

PovExport_cls::PovExport_cls(Main_cls& main)
    : PovExport_cls(main, [this](double position) { return mMain.PrepareState(position, mOwnState); }) {}

PovExport_cls::PovExport_cls(Main_cls& main, StateSource source) : mMain(main), mSource(std::move(source)) {
    mMain.GetPovRayCtrl().SetSceneWriter(
        [this](int frame, const wxString& name, bool first, wxString* error) {
            return BeginScene(frame, name, first, error);
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

std::unique_ptr<PovSceneFile_cls> PovExport_cls::BeginScene(int frame, const wxString& name, bool first,
                                                            wxString* error) {
    if (first) {
        PlaceCamera();
        mToldFaults.clear();
    }
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
    auto scene =
        PovScene_cls({mMain.GetSceneLinks(), mMain.GetPovRayCtrl(), mMain.GetCameraPath(), mToldFaults})
            .Begin(view, frame, name, first, error);
    mOwnState.Release();
    return scene;
}
