#pragma once

#include <vector>

#include "core/clsCommandLine.h"
#include "core/clsJobResult.h"
#include "core/clsPovExport.h"
#include "core/clsProgress.h"

class FrameSource_cls;

/// The job of --pov: writes the scenes and option files of frames, and with --run renders them, several at a
/// time where there are processors and memory for it. Nobody is asked anything: a scene without light is
/// written too. Threads: GUI thread. Failure: told on standard error; pictures that are there are whole.
class PovJob_cls {
  public:
    PovJob_cls(Main_cls& main, FrameSource_cls& source, const CommandLine_cls& line,
               const FrameSelection_cls& frames);
    ~PovJob_cls();

    JobResult Run();

  private:
    bool CanStart();
    JobResult Write();
    JobResult Render();
    /// How many renderers run at a time.
    int ChooseRenderers();

    Main_cls& mMain;
    FrameSource_cls& mSource;
    const CommandLine_cls& mLine;
    std::vector<int> mFrames;
    PovExport_cls mExport;
    Progress_cls mProgress;
    bool mFailed = false;
};
