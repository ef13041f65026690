#pragma once

#include <wx/thread.h>

#include <atomic>
#include <optional>

#include "interp/clsIDIndex.h"
#include "interp/clsPeriodicBoundary.h"
#include "interp/clsRateArrays.h"

/// The rate stage: what every particle of snapshot A gains per time unit on its way to snapshot B.
/// A detached thread that fans out over 1 to 6 ThreadInterpolatorBlock_cls; it deletes itself. At most one is
/// under way, registered in GpCThreadInterpolate. Threads: started on the GUI thread. It writes A's velocity
/// and work arrays and reads B, so nobody may touch either snapshot until GbThreadInterpolateFinished. Units:
/// dt is the time between the snapshots in the data's own time. Interpolation types: with LINEAR the velocity
/// is the difference of the snapshots; with HERMITE it stays as read from the file; with no interpolation it
/// is 0. Radius and value1 change with LINEAR alone. Particles of A beyond the smaller of both counts keep
/// the velocity that was read; their radius and value1 do not change. They are not looked for in B by their
/// ID either. Failure: without a thread the program ends with "Can't create thread".
class ThreadInterpolator_cls final : public wxThread {
  public:
    ThreadInterpolator_cls() : wxThread(wxTHREAD_DETACHED) {}

    /// What one rate stage is told. `interpolated` is A's flag, set when the rates are complete.
    struct Task {
        std::atomic<bool>* interpolated = nullptr;
        RateArrays_cls arrays{};
        float dt = 1.0F;
        unsigned int interpolationType = 0;
        unsigned int variableNumber = 0;
        PeriodicBoundary_cls::Rule periodic{};
    };

    /// Starts a rate stage. Returns false, and does nothing, while another is registered: the caller asks
    /// again later. A dt of 0 counts as 1.
    static bool Start(const Task& task);

    /// Stores the task and creates the thread.
    void SetParameters(const Task& task);
    ExitCode Entry() override;

    /// The rates of one task, computed by the caller's thread and the workers it starts.
    static void ComputeRates(const Task& task);
    static int GetWorkerNumber(int countA);

  private:
    Task mTask;
};

/// The rate stage under way, or null. Set by its starter, cleared by itself as its last act or by who waited.
extern std::atomic<ThreadInterpolator_cls*> GpCThreadInterpolate;
/// Cleared at the start of a rate stage, set at its end.
extern std::atomic<bool> GbThreadInterpolateFinished;
/// Set while a rate stage is waited for: drawing is held off. ("Interplate" is how the name has always been.)
extern std::atomic<bool> GbGLLockForInterplateData;
