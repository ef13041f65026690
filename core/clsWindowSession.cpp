#include "core/clsWindowSession.h"

#include <cmath>

#include "core/clsProjectFile.h"
#include "gui/clsFrameMain.h"
#include "seam/clsProjectName.h"
#include "seam/clsUserMessage.h"

WindowSession_cls::WindowSession_cls(const CommandLine_cls& line, const wxString& programFolder)
    : mLine(line), mMain(programFolder), mPovExport(mMain), mContext(MakeContext()) {}

WindowSession_cls::~WindowSession_cls() {
    // The toolkit owns its windows; one that is still open ends before the core that it shows.
    delete mFrame.get();
}

FrameContext_cls WindowSession_cls::MakeContext() {
    Main_cls& main = mMain;
    return {.dataLoader = main.GetDataLoader(),
            .dataExporter = main.GetDataExporter(),
            .frameSettings = main.GetFrameSettings(),
            .povRayCtrl = main.GetPovRayCtrl(),
            .timeCtrl = main.GetTimeCtrl(),
            .drawOption = main.GetDrawOption(),
            .seqCtrl = main.GetSeqCtrl(),
            .periodicBoundary = main.GetPeriodicBoundary(),
            .cameraPath = main.GetCameraPath(),
            .lightSRCCtrl = main.GetLightSRCCtrl(),
            .colorCurveCtrl = main.GetColorCurveCtrl(),
            .preference = main.GetPreference(),
            .panelShared = main.GetPanelShared(),
            .shadowSettings = main.GetShadowSettings(),
            .panelSettings = {&main.GetPanelSettings(0), &main.GetPanelSettings(1), &main.GetPanelSettings(2),
                              &main.GetPanelSettings(3)},
            .timeGroups = main.GetTimeGroups(),
            .paramHost = main.GetParamHost(),
            .projectLoading = GbGLLockProjectLoading,
            .openData = [&main](const wxString& path) { main.GetDataLoader().OpenDataFile(path); },
            .closeData = [&main] { main.CloseDataCommand(); },
            .openProject = [&main](const wxString& path) -> std::optional<std::vector<wxString>> {
                ProjectFile_cls& project = main.GetProjectFile();
                if (!project.OpenProject(path)) return std::nullopt;
                if (project.GetKnownLines() > 0) return project.GetFaults();
                UserMessage_cls::Tell("Warning", path + " is no project");
                return std::nullopt;
            },
            .applySetting = [&main](const wxString& line) { main.GetProjectFile().ApplySetting(line); },
            .saveProject =
                [&main](const wxString& path) {
                    const bool saved = main.SaveProjectFile(path, true) == 1;
                    return saved ? wxString() : main.GetProjectFile().GetError();
                },
            .saveRecovery = [&main](const wxString& path) { return main.GetProjectFile().WriteCopy(path); },
            .prepareState = [&main](double position) { return main.PrepareState(position); },
            .cleanUpMemory = [&main](int snapshot) { main.CleanUpMemory(snapshot); },
            .waitThreadFinish = [&main] { main.WaitThreadFinish(); },
            .applyPreferences = [&main] { main.ApplyPreferences(); },
            .isPovrayCondistionSatisfiled = [&main] { return main.IsPovrayCondistionSatisfiled(); },
            .quit = [&main] { return main.QuitProcess(); },
            .keepsUserSettings = !mLine.mConfig || !mLine.mConfig->empty(),
            .givenSettings = mLine.mSettings};
}

bool WindowSession_cls::Open() {
    if (!mMain.ReadConfiguration(mLine.mConfig)) return false;
    // The toolkit owns its windows.
    mFrame = new FrameMain_cls(mContext);
    mFrame->ShowAndWait();
    // Who takes up unsaved work has no use for another file over it.
    if (mFrame->GetFiles().OfferRecovery()) return true;
    const bool project = ProjectName::IsProject(mLine.mFile);
    if (project) mFrame->GetFiles().OpenProject(mLine.mFile);
    for (const wxString& setting : mLine.mSettings) {
        const wxString error = mMain.GetProjectFile().ApplySetting(setting);
        if (error.empty()) continue;
        PrintError("--set " + error);
        return false;
    }
    mFrame->RefreshAll();
    if (!project && !mLine.mFile.empty()) mFrame->GetFiles().OpenData(mLine.mFile);
    if (mLine.mPlay) mMain.GetTimeCtrl().StartPlay();
    return true;
}
