#pragma once

#include <wx/string.h>

#include <functional>
#include <memory>

#include "core/clsFrameSettings.h"
#include "data/clsDataLoader.h"
#include "data/clsPDataSeqCtrl.h"
#include "data/clsPreference.h"
#include "interp/clsPeriodicBoundary.h"
#include "render/clsDrawOption.h"
#include "timeline/clsTimeCtrl.h"

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

    /// A parameter anywhere in the groups, by its identifier.
    Parameters_cls* GetPCParamFromID(const wxString& identifier);

    /// Preferences that others hold copies of are handed to them.
    void ApplyPreferences();
    /// Writes the configuration file into the program's folder; false when that cannot be.
    bool QuitProcess();
    wxString GetConfigPath() const;

    // Controllers
    // ---------------------------------------------------------------------------

    DrawOption_cls& GetDrawOption() { return mDrawOption; }
    PDataSeqCtrl_cls& GetSeqCtrl() { return mSeqCtrl; }
    DataLoader_cls& GetDataLoader() { return mDataLoader; }
    TimeCtrl_cls& GetTimeCtrl() { return mTimeCtrl; }
    PeriodicBoundary_cls& GetPeriodicBoundary() { return mPeriodicBoundary; }
    Preference_cls& GetPreference() { return mPreference; }
    FrameSettings_cls& GetFrameSettings() { return mFrameSettings; }

  private:
    TimeHost_cls MakeTimeHost();
    void DropState();

    // The order is the order of creation.
    const wxString mProgramFolder;
    DrawOption_cls mDrawOption;
    PDataSeqCtrl_cls mSeqCtrl;
    DataLoader_cls mDataLoader;
    TimeCtrl_cls mTimeCtrl;
    FrameSettings_cls mFrameSettings;
    PeriodicBoundary_cls mPeriodicBoundary;
    Preference_cls mPreference;
    std::unique_ptr<SnapData_cls> mState;
};
