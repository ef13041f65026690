#pragma once

#include <functional>
#include <optional>

#include "core/clsCommandLine.h"
#include "core/clsFrameSource.h"
#include "core/clsJobResult.h"
#include "core/clsMain.h"
#include "core/clsProjectFile.h"
#include "seam/clsProjectName.h"

/// Does what the command line asks for without a window.
/// Output: results and diagnostic lines on standard output, progress and messages on standard error.
class Batch_cls {
  public:
    enum Status : int { kDone = 0, kFailed = 1, kWrongUsage = 2, kInterrupted = 130 };

    Batch_cls(CommandLine_cls line, const wxString& programFolder);
    int Run();

  private:
    int Prepare();
    int Info();
    int Render();
    int Export();
    int Save();
    int Pov();

    bool IsProject() const { return ProjectName::IsProject(mLine.mFile); }
    bool HasData();
    /// Gives the settings of data without a project a first look, but for those that were given by hand.
    void ApplyFirstLook();
    /// False, after a message, for a whole series whose second member is missing.
    bool IsNumberedByOne();
    /// The frames to do, checked against the scene and the pattern's number; null after a message.
    std::optional<FrameSelection_cls> ChooseFrames() const;
    /// Does one frame after the other. The work returns what went wrong, empty for nothing.
    int DoFrames(const FrameSelection_cls& frames,
                 const std::function<wxString(int frame, const wxString& name)>& work);
    /// Says once what a file holds behind its particles; no fault.
    void TellLeftover(const InputFile_cls& file, const wxString& path, int particles);
    /// True for the project or a file of the data.
    bool IsInput(const wxString& name);
    wxString WriteState(const wxString& name, double position);
    /// The exit status of a job; that it was interrupted is told.
    int Outcome(JobResult result = JobResult::Done) const;

    CommandLine_cls mLine;
    Main_cls mMain;
    ProjectFile_cls& mProject;
    FrameSource_cls mSource;
    bool mLeftoverTold = false;
};
