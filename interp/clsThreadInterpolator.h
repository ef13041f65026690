#pragma once

#include <atomic>
#include <memory>

#include "interp/clsPeriodicBoundary.h"
#include "interp/clsRateArrays.h"
#include "seam/clsJoinedThread.h"

class ThreadInterpolator_cls;

/// The rate stage under way, or null. Set when it is started; cleared by itself as its last act or by who
/// waited.
extern std::atomic<ThreadInterpolator_cls*> GpCThreadInterpolate;
/// Cleared at the start of a rate stage, set at its end.
extern std::atomic<bool> GbThreadInterpolateFinished;
/// Set while a rate stage is waited for: drawing is held off. ("Interplate" is how the name has always been.)
extern std::atomic<bool> GbGLLockForInterplateData;

/// The rate stage: what every particle of snapshot A gains per time unit on its way to snapshot B. Fans
/// out over 1 to 6 ThreadInterpolatorBlock_cls. At most one is under way, registered in
/// GpCThreadInterpolate.
/// Owned by the class itself from Start() on, until the next one starts or the program ends.
/// Threads: started on the GUI thread. It writes A's velocity and work arrays and reads B, so nobody may
/// touch either snapshot until GbThreadInterpolateFinished.
/// Units: dt is the time between the snapshots in the data's own time.
/// Interpolation types: with LINEAR the velocity is the difference of the snapshots; with HERMITE it stays
/// as read from the file; with no interpolation it is 0. Radius and value1 change with LINEAR alone.
/// Particles of A beyond the smaller of both counts keep the velocity that was read; their radius and
/// value1 do not change. They are not looked for in B by their ID either.
/// Failure: without a thread the program ends with a message.
class ThreadInterpolator_cls final : public JoinedThread_cls {
  public:
    ~ThreadInterpolator_cls() override { Join(); }

    /// What one rate stage is told. `interpolated` is A's flag, set when the rates are complete.
    struct Task {
        std::atomic<bool>* interpolated = nullptr;
        RateArrays_cls arrays{};
        float dt = 1.0F;  ///< 0 counts as 1
        unsigned int interpolationType = 0;
        unsigned int variableNumber = 0;
        PeriodicBoundary_cls::Rule periodic{};
        /// Gets the number of particles whose ID is in B, but where no search looks for it. May be null.
        std::atomic<int>* outOfReach = nullptr;
    };

    /// Starts a rate stage. False, and nothing done, while another is registered: the caller asks again
    /// later.
    static bool StartInterpolating(const Task& task);
    /// Returns when the last rate stage has done its last act. Called before the program ends.
    static void JoinLast();

    void SetParameters(const Task& task) { mTask = task; }
    /// The rates of one task, computed by the caller's thread and the workers it starts.
    static void ComputeRates(const Task& task);
    static int GetWorkerNumber(int countA);

  protected:
    ExitCode Entry() override;

  private:
    Task mTask;
};
