#pragma once

#include <wx/string.h>

#include <functional>
#include <optional>

#include "render/clsPositionAndDirection.h"

class Main_cls;
class SnapData_cls;

/// Lets the ray tracer's controller write scenes of frames, as the first view panel shows them: reaches the
/// data, the timeline and the camera for it. Lives no longer than the core. Threads: GUI thread.
class PovExport_cls {
  public:
    /// The particles of a data position; null where there are none.
    using StateSource = std::function<const SnapData_cls*(double position)>;

    PovExport_cls(Main_cls& main, StateSource source);
    ~PovExport_cls();
    PovExport_cls(const PovExport_cls&) = delete;
    PovExport_cls& operator=(const PovExport_cls&) = delete;

  private:
    wxString WriteScene(int frame, const wxString& name, bool first,
                        const std::function<bool(double share)>& progress);
    void PlaceCamera();

    Main_cls& mMain;
    const StateSource mSource;
    std::optional<PositionAndDirection_cls> mFitted;
};
