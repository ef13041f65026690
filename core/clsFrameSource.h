#pragma once

#include <wx/string.h>

#include <set>
#include <span>

class Main_cls;
class SnapData_cls;

/// The particles of data positions for jobs without a window, with what is wrong with their files told once
/// on standard error. Reads ahead while others draw. Threads: GUI thread.
class FrameSource_cls {
  public:
    FrameSource_cls(Main_cls& main, bool verbose) : mMain(main), mVerbose(verbose) {}

    /// Null where there are no particles. Stays valid until the next call. `ahead` are the positions that
    /// will be asked for next: their reading starts before this one's colours are computed.
    const SnapData_cls* Prepare(double position, std::span<const double> ahead = {});
    /// Starts what can be started for these positions without waiting: the first that is not ready.
    void ReadAhead(std::span<const double> ahead);

    void TellFaults(int snapshot);
    /// A fault that somebody else has told.
    void NoteFault() { mAnyFault = true; }
    /// Tells the rest. False when anything was wrong.
    bool IsFaultless() const;

  private:
    Main_cls& mMain;
    const bool mVerbose;
    bool mAnyFault = false;
    std::set<int> mMissing;
};
