#pragma once

#include <wx/string.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "data/clsDataLoader.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsPreference.h"
#include "gui/clsFrameSettings.h"
#include "interp/clsPeriodicBoundary.h"
#include "output/clsDataExporter.h"
#include "pov/clsPovRayCtrl.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsDisplayedState.h"
#include "render/clsDrawOption.h"
#include "render/clsPanelSettings.h"
#include "render/clsPanelShared.h"
#include "render/clsShadowSettings.h"
#include "scene/clsCameraPath.h"
#include "scene/clsLightSRCCtrl.h"
#include "scene/clsScenePass.h"
#include "timeline/clsTimeCtrl.h"

class ProjectFile_cls;
class SnapData_cls;

/// The application: owns every long-lived controller, ties them together, opens and closes data as undoable
/// steps. The particles themselves live in the sequences. One object, with or without a window. Threads: GUI
/// thread. Units: memory in MB by the fixed figures of the data blocks.
class Main_cls {
  public:
    /// The folder of the program holds its configuration file and resources.
    explicit Main_cls(const wxString& programFolder);
    ~Main_cls();
    Main_cls(const Main_cls&) = delete;
    Main_cls& operator=(const Main_cls&) = delete;

    // Data
    // ----------------------------------------------------------------------------

    /// Closes what is open and opens the path, as one step of the undo list.
    void OpenDataFileCommand(const wxString& path);
    void CloseDataCommand();
    /// The work of those steps. A series of more than 10000 files is cut to 8000, with a warning.
    void OpenDataFile(const wxString& path);
    void CloseData();
    /// Waits until neither a reader nor a rate stage runs.
    void WaitThreadFinish();

    bool IsTheIndexReady(int index, double fraction);
    bool IsTheIndexLoaded(int index) const { return mSeqCtrl.IsTheIndexLoaded(index); }
    /// As last measured by the clean-up.
    int GetUsedTotalMemoryMB() const { return mSeqCtrl.GetUsedTotalMemoryMB(); }
    int GetAverageMemoryMB() const { return mSeqCtrl.GetAverageMemoryMB(); }
    int GetMemoryLimitMB() const { return mSeqCtrl.GetMemoryLimitMB(); }
    /// Trims the cache around the current frame. Run before a frame is prepared.
    void CleanUpMemory(int currentSnapshot);

    /// The particles of an instant, ready to be drawn; null where there are none. Waits for reading and
    /// rates. Stays valid until the next instant is asked for or data change.
    const SnapData_cls* PrepareState(double position);
    /// The same beside those on display; the state must not outlive the data.
    const SnapData_cls* PrepareState(double position, DisplayedState_cls& into);

    /// A parameter anywhere in the groups, by its identifier.
    Parameters_cls* GetPCParamFromID(const wxString& identifier);

    ProjectFile_cls& GetProjectFile() { return *mProjectFile; }
    int SaveProjectFile(const wxString& path, bool full);
    bool ReadProjectFile(const wxString& path);
    /// What follows from settings that were just read: preferences are handed on, lights show their tracks,
    /// and a series that is too long is cut.
    void FinishReading();
    /// Hands the preferences on to what works by them.
    void ApplyPreferences();
    /// Reads the configuration, once, before anything else: the usual file, which need not be there; another
    /// one, which must; or none, for an empty path. False when it cannot be opened. Then the window may draw.
    bool ReadConfiguration(const std::optional<wxString>& path);
    /// Where the configuration is read and written; empty for nowhere.
    const wxString& GetConfigPath() const { return mConfigPath; }
    /// Asked before the ray tracer's files are written: true when a light shines, or the user goes on
    /// without.
    bool IsPovrayCondistionSatisfiled() const;
    /// Writes the configuration file; false when that cannot be.
    bool QuitProcess();

    // Controllers
    // ---------------------------------------------------------------------------

    DrawOption_cls& GetDrawOption() { return mDrawOption; }
    PDataSeqCtrl_cls& GetSeqCtrl() { return mSeqCtrl; }
    DataLoader_cls& GetDataLoader() { return mDataLoader; }
    DataExporter_cls& GetDataExporter() { return mDataExporter; }
    CameraPath_cls& GetCameraPath() { return mCameraPath; }
    TimeCtrl_cls& GetTimeCtrl() { return mTimeCtrl; }
    FrameSettings_cls& GetFrameSettings() { return mFrameSettings; }
    PanelShared_cls& GetPanelShared() { return mPanelShared; }
    ShadowSettings_cls& GetShadowSettings() { return mShadowSettings; }
    PanelSettings_cls& GetPanelSettings(int panel) { return mPanelSettings.at(static_cast<size_t>(panel)); }
    Preference_cls& GetPreference() { return mPreference; }
    PeriodicBoundary_cls& GetPeriodicBoundary() { return mPeriodicBoundary; }
    LightSRCCtrl_cls& GetLightSRCCtrl() { return mLightSRCCtrl; }
    ColorCurveCtrl_cls& GetColorCurveCtrl() { return mColorCurveCtrl; }
    PovRayCtrl_cls& GetPovRayCtrl() { return mPovRayCtrl; }
    /// What the views of the scene share.
    ScenePass_cls::Links GetSceneLinks();
    /// The trees of the timeline, the camera's first.
    const std::vector<ParamGroup_cls*>& GetTimeGroups() const { return mTimeGroups; }
    /// What the groups of those trees ask of a window; empty without one.
    ParamHost_cls& GetParamHost() { return *mParamHost; }

  private:
    TimeHost_cls MakeTimeHost();
    void HangUpGroups();
    void CutLongSeries();

    // The order is the order of creation.
    wxString mConfigPath;
    const std::shared_ptr<ParamHost_cls> mParamHost = std::make_shared<ParamHost_cls>();
    DrawOption_cls mDrawOption;
    PDataSeqCtrl_cls mSeqCtrl;
    DataLoader_cls mDataLoader;
    DataExporter_cls mDataExporter;
    CameraPath_cls mCameraPath{mParamHost};
    TimeCtrl_cls mTimeCtrl;
    // What the main window keeps, which is here without a window too
    FrameSettings_cls mFrameSettings;
    PanelShared_cls mPanelShared;
    ShadowSettings_cls mShadowSettings;
    std::array<PanelSettings_cls, PanelSettings_cls::kPanels> mPanelSettings{
        PanelSettings_cls(0), PanelSettings_cls(1), PanelSettings_cls(2), PanelSettings_cls(3)};
    Preference_cls mPreference;
    PeriodicBoundary_cls mPeriodicBoundary;
    LightSRCCtrl_cls mLightSRCCtrl{mParamHost};
    ColorCurveCtrl_cls mColorCurveCtrl;
    PovRayCtrl_cls mPovRayCtrl;
    ParamGroup_cls mCameraGroup{"Camera Path"};
    ParamGroup_cls mLightGroup{"Light Sources"};

    std::vector<ParamGroup_cls*> mTimeGroups;
    DisplayedState_cls mState;
    std::unique_ptr<ProjectFile_cls> mProjectFile;
};
