#pragma once

#include <memory>

#include "core/clsCommandLine.h"
#include "core/clsMain.h"

/// Does what the command line asks for without a window.
/// Output: results and diagnostic lines on standard output, progress and messages on standard error.
class Batch_cls {
  public:
    enum Status : int { kDone = 0, kFailed = 1, kWrongUsage = 2, kInterrupted = 130 };

    /// The settings of the configuration file are read here, the data are opened by Run().
    Batch_cls(CommandLine_cls line, const wxString& programFolder);
    int Run();

  private:
    int Prepare();
    int Info();
    int Render();
    int Save();
    /// A snapshot with everything wrong about its file told to the user.
    std::unique_ptr<PDataBlock_cls> Load(int index, PDataSequence_cls::Depth depth);
    bool HasData();
    /// The exit status of a job that went to its end.
    int Outcome() const;

    CommandLine_cls mLine;
    Main_cls mMain;
    bool mAnyFault = false;
    int mMissing = 0;
};
