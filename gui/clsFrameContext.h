#pragma once

#include <wx/string.h>

#include <array>
#include <atomic>
#include <functional>
#include <optional>
#include <vector>

class CameraPath_cls;
class ColorCurveCtrl_cls;
class DataExporter_cls;
class DataLoader_cls;
class DrawOption_cls;
class FrameSettings_cls;
class LightSRCCtrl_cls;
class PanelSettings_cls;
class PanelShared_cls;
class ParamGroup_cls;
struct ParamHost_cls;
class PDataSeqCtrl_cls;
class PeriodicBoundary_cls;
class PovRayCtrl_cls;
class Preference_cls;
class ShadowSettings_cls;
class SnapData_cls;
class TimeCtrl_cls;

/// What the main window reaches: the controllers, and what only the application core can do. Filled by the
/// core, which owns everything named here and outlives the window. Widgets take the single controller they
/// work on; only the window itself and the makers of its parts see all of this.
/// Threads: GUI thread.
struct FrameContext_cls {
    DataLoader_cls& dataLoader;
    DataExporter_cls& dataExporter;
    FrameSettings_cls& frameSettings;
    PovRayCtrl_cls& povRayCtrl;
    TimeCtrl_cls& timeCtrl;
    DrawOption_cls& drawOption;
    PDataSeqCtrl_cls& seqCtrl;
    PeriodicBoundary_cls& periodicBoundary;
    CameraPath_cls& cameraPath;
    LightSRCCtrl_cls& lightSRCCtrl;
    ColorCurveCtrl_cls& colorCurveCtrl;
    Preference_cls& preference;
    PanelShared_cls& panelShared;
    ShadowSettings_cls& shadowSettings;
    std::array<PanelSettings_cls*, 4> panelSettings;
    /// The trees of the timeline, the camera's first.
    const std::vector<ParamGroup_cls*>& timeGroups;
    /// What those groups ask of a window; the timeline serves it while it lives.
    ParamHost_cls& paramHost;

    /// Set while a project is read: nothing is drawn.
    const std::atomic<bool>& projectLoading;

    std::function<void(const wxString& path)> openData;  ///< as a step of the undo list
    std::function<void()> closeData;                     ///< the same
    /// What is wrong with a project that was opened, one line each; nothing when it was not, which the user
    /// has been told.
    std::function<std::optional<std::vector<wxString>>(const wxString& path)> openProject;
    /// One KEY=VALUE line, past the undo list.
    std::function<void(const wxString& line)> applySetting;
    /// Empty, or why the project could not be written.
    std::function<wxString(const wxString& path)> saveProject;
    /// Writes the state as a project and changes nothing else: it stays unsaved. False when that fails.
    std::function<bool(const wxString& path)> saveRecovery;
    /// The particles of a data position; null where there are none. Waits for reading and rates.
    std::function<const SnapData_cls*(double position)> prepareState;
    std::function<void(int currentSnapshot)> cleanUpMemory;
    std::function<void()> waitThreadFinish;
    /// Hands changed preferences on to what works by them.
    std::function<void()> applyPreferences;
    /// Before the ray tracer's files are written: asks whether to go on where no light shines.
    std::function<bool()> isPovrayCondistionSatisfiled;
    /// Writes the configuration file.
    std::function<bool()> quit;
    /// False when the user's files are neither to be read nor written.
    bool keepsUserSettings;
    /// From the command line, KEY=VALUE.
    const std::vector<wxString>& givenSettings;
};
