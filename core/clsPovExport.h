#pragma once

#include <wx/string.h>

#include <functional>
#include <memory>
#include <optional>
#include <set>

#include "render/clsDisplayedState.h"
#include "render/clsPositionAndDirection.h"

class Main_cls;
class PovSceneFile_cls;
class SnapData_cls;

/// Lets the ray tracer's controller write scenes of frames, as the first view panel shows them: reaches the
/// data, the timeline and the camera for it. Lives no longer than the core. Threads: GUI thread.
class PovExport_cls {
  public:
    /// The particles of a data position; null where there are none.
    using StateSource = std::function<const SnapData_cls*(double position)>;

    /// With particles of its own: those on display stay as they are.
    explicit PovExport_cls(Main_cls& main);
    PovExport_cls(Main_cls& main, StateSource source);
    ~PovExport_cls();
    PovExport_cls(const PovExport_cls&) = delete;
    PovExport_cls& operator=(const PovExport_cls&) = delete;

  private:
    std::unique_ptr<PovSceneFile_cls> BeginScene(int frame, const wxString& name, bool first,
                                                 wxString* error);
    void PlaceCamera();

    Main_cls& mMain;
    DisplayedState_cls mOwnState;  ///< only while a scene is begun: the data may go later
    const StateSource mSource;
    std::optional<PositionAndDirection_cls> mFitted;
    std::set<wxString> mToldFaults;  ///< of textures, in this series of frames
};
