#pragma once

#include <array>
#include <memory>

#include "data/clsPDataSequence.h"

class TimeCtrl_cls;

/// The four data sequences, of which the active one receives data and is drawn, and the memory they may take.
/// Owned by the application core. Threads: GUI thread. Units: MB by the fixed figures of PDataBlock_cls.
class PDataSeqCtrl_cls {
  public:
    static constexpr int kSequences = 4;
    /// ClearData(): which sequences.
    static constexpr int kAllSequences = -2;
    static constexpr int kActive = -1;

    /// A limit of 4096 MB when large, else 768.
    explicit PDataSeqCtrl_cls(bool largeLimit);

    PDataSequence_cls& GetActive() { return *mSequences[static_cast<size_t>(mActive)]; }
    const PDataSequence_cls& GetActive() const { return *mSequences[static_cast<size_t>(mActive)]; }
    PDataSequence_cls& GetSequence(int number) { return *mSequences[static_cast<size_t>(number)]; }

    void OpenDataFile(const wxString& path) { GetActive().OpenDataFile(path); }
    /// One snapshot, or PDataSequence_cls::kAll, of one sequence, the active one or all.
    void ClearData(int which, int snapshot, bool resetNames);

    void PrepareIndex(int index, double fraction, bool interpolateAlways, bool wait);
    bool IsTheIndexReady(int index, double fraction, bool interpolateAlways);
    bool IsTheIndexLoaded(int index) const { return GetActive().IsTheIndexLoaded(index); }

    /// Measures the memory and releases snapshots: all out of step, then those needed last until the limit
    /// holds or nothing is left that may go.
    void CleanUpMemory(int currentSnapshot, int step);
    /// Reads and interpolates the frames ahead, in the direction of playback: starts the next thing that can
    /// be started, and waits for nothing. Called again whenever that is done, it comes to all of them. Call
    /// it only when no reader runs and the current instant is ready.
    void PrefetchNext(const TimeCtrl_cls& time);

    /// As last measured by CleanUpMemory().
    int GetUsedTotalMemoryMB() const { return mUsedMB; }
    /// Per loaded snapshot, -1 when none is.
    int GetAverageMemoryMB() const;
    int GetMemoryLimitMB() const { return mLimitMB; }
    void SetMemoryLimitMB(int limit) { mLimitMB = limit; }

    void SetSnipping(int index);
    void ClearSnipping();
    /// See PDataSequence_cls.
    void SetProjectFolder(const wxString& folder);
    wxString Serialize() const;
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);

  private:
    PDataSequence_cls::Place PlaceOf(const TimeCtrl_cls& time, int frame) const;
    bool IsFrameReady(const TimeCtrl_cls& time, int frame);
    void PrepareFrame(const TimeCtrl_cls& time, int frame);

    std::array<std::unique_ptr<PDataSequence_cls>, kSequences> mSequences;
    int mActive = 0;
    int mUsedMB = 0;
    int mLimitMB;
    /// What the limit has released since `mReleasedAt` is shown.
    std::vector<int> mReleased;
    int mReleasedAt = -1;
};

/// Ends the program when a frame is to be prepared while data are being loaded. The lock is only set inside
/// waiting loops of the GUI thread, and those never prepare frames: nobody can reach this by using the
/// program.
void StopIfLoading();
