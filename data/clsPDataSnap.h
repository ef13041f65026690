#pragma once

#include <wx/string.h>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

#include "data/clsPDataBlock.h"

class PDataSequence_cls;

/// Set while the GUI thread waits for a reader: no frame may be prepared meanwhile.
extern std::atomic<bool> GbGLLockForLoadingData;

/// One snapshot of a sequence: its file, its time, and how much of it is in memory. The file's name and time
/// outlive the particles, which come and go with the cache. Owned by its PDataSequence_cls.
/// States, by the flags (read requested, loaded, interpolation requested, interpolated): empty (none),
/// reading (the first), loaded (two), interpolating (three), interpolated (all). Threads: GUI thread; the
/// reader's thread sets the loaded flag, the rate stage's the interpolated flag, each after it has written
/// its arrays for the last time. Failure: a file that is missing or unreadable leaves the snapshot empty with
/// the state Unreadable; such an instant draws nothing. What is wrong inside a file is kept as lines for the
/// user until they are taken.
class PDataSnap_cls {
  public:
    enum class FileState { Unchecked = 0, Readable = 1, Unreadable = 2 };
    /// The time of a snapshot whose header was not read.
    static constexpr double kNoTime = -9999.0;

    PDataSnap_cls(PDataSequence_cls& sequence, int index);
    PDataSnap_cls(const PDataSnap_cls&) = delete;
    PDataSnap_cls& operator=(const PDataSnap_cls&) = delete;

    /// Starts the reading of the file, if it is there.
    void LoadData();
    /// Starts the reading of the next snapshot where that is needed, and then the rate stage towards it;
    /// towards itself when there is no next file. Without waiting, only what can be started at once is.
    void InterpolateData(bool wait);
    /// Frees the particles. Waits first for threads that work on them.
    void ReleaseData();
    /// The same, and with `reset` forgets file, state and time too.
    void Clear(bool reset);

    /// Asks the disk once; the answer holds until the path is set again or an opening fails.
    bool IsFileValid();
    bool IsItLoaded() const { return mReadRequested && IsLoaded(); }
    /// True while the snapshot is being read, or with `interpolation` until its rates are complete.
    bool IsPreparing(bool interpolation) const;

    /// Waits for the running reader when `which` says whether the snapshot's own read is under way: false
    /// waits only for a snapshot that is not requested yet or is loaded, true only for one that is being
    /// read.
    void WaitThreadReading(const PDataSnap_cls& snapshot, bool which) const;
    /// Waits for the running rate stage when `which` says whether the snapshot is not ready yet.
    void WaitThreadInterpolate(const PDataSnap_cls& snapshot, bool which) const;

    void SetFilePath(const wxString& path);
    const wxString& GetFilePath() const { return mFilePath; }
    FileState GetFileState() const { return mFileState; }
    int GetIndex() const { return mIndex; }
    double GetTime() const { return mTime; }
    void SetTime(double time) { mTime = time; }
    /// 0 until the header was read.
    int GetParticleNumber() const;
    long long GetUsedMemoryKB() const { return mBlock->GetUsedMemoryKB(); }

    PDataBlock_cls& GetBlock() { return *mBlock; }
    const PDataBlock_cls& GetBlock() const { return *mBlock; }
    void LinkTo(PDataSnap_cls* previous, PDataSnap_cls* next);

    bool IsTagged() const { return mTagged; }
    void SetTagged(bool tagged) { mTagged = tagged; }
    bool IsReadRequested() const { return mReadRequested; }
    bool IsLoaded() const { return mLoaded.load(std::memory_order_acquire); }
    bool IsInterpolationRequested() const { return mInterpolationRequested; }
    bool IsInterpolated() const { return mInterpolated.load(std::memory_order_acquire); }
    std::atomic<bool>* GetLoadedFlag() { return &mLoaded; }
    std::atomic<bool>* GetInterpolatedFlag() { return &mInterpolated; }

    /// What was wrong with the file, once until the path is set again.
    std::vector<wxString> TakeProblems();
    /// What the user should know of the way to the next snapshot, though nothing is wrong with the file;
    /// once.
    wxString TakeNote();

    /// Called with the round every 100 rounds of a wait for a reader, to refresh the status text. Set once by
    /// the front end; may be empty.
    static std::function<void(int round)> msWaitObserver;

  private:
    void StartReading();
    bool IsBusy() const;

    PDataSequence_cls& mSequence;
    std::unique_ptr<PDataBlock_cls> mBlock;
    PDataSnap_cls* mNext = nullptr;
    PDataSnap_cls* mPrevious = nullptr;
    const int mIndex;
    double mTime = kNoTime;
    bool mTagged = false;
    bool mProblemsTold = false;
    bool mNoteTold = false;
    bool mReportWaits = false;  ///< what the reader found has not been looked at
    wxString mFilePath;
    FileState mFileState = FileState::Unchecked;
    bool mReadRequested = false;
    std::atomic<bool> mLoaded{false};
    bool mInterpolationRequested = false;
    std::atomic<bool> mInterpolated{false};
};
