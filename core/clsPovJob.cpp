#include "core/clsPovJob.h"

#include <unistd.h>

#include <algorithm>

#include "core/clsFrameSource.h"
#include "core/clsInterrupt.h"
#include "core/clsMain.h"
#include "interp/clsSnapData.h"
#include "seam/clsClock.h"
#include "seam/clsShellCommand.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr int kRenderPeriodMs = 10;
/// What the renderer keeps for a particle and for itself, as measured; billboards need the most.
constexpr double kByteOfParticle = 600.0;
constexpr double kByteOfRenderer = 100e6;

std::vector<int> ListOf(const FrameSelection_cls& range) {
    std::vector<int> frames;
    for (int frame = range.mFirst; frame <= range.mLast; frame += range.mStep) frames.push_back(frame);
    return frames;
}

}  // namespace

PovJob_cls::PovJob_cls(Main_cls& main, FrameSource_cls& source, const CommandLine_cls& line,
                       const FrameSelection_cls& frames)
    : mMain(main),
      mSource(source),
      mLine(line),
      mFrames(ListOf(frames)),
      mExport(main, [&source](double position) { return source.Prepare(position); }),
      mProgress(static_cast<int>(mFrames.size()), line.mQuiet) {
    PovRayCtrl_cls& control = mMain.GetPovRayCtrl();
    control.mPathPovWork.SetText(line.mFolder);
    if (line.mIsSizeGiven) {
        control.GetFormat().mCameraWidth.mValue = line.mWidth;
        control.GetFormat().mCameraHeight.mValue = line.mHeight;
    }
    control.SetProgress([](double) { return !Interrupt_cls::IsRaised(); });
    control.SetObserver([this](const PovRenderPool_cls::Outcome& outcome) {
        if (outcome.frame < 0 || Interrupt_cls::IsRaised()) return;
        if (outcome.error.empty()) return mProgress.Step(outcome.picture);
        mFailed = true;
        mProgress.End();
        PrintError(outcome.error);
    });
}

PovJob_cls::~PovJob_cls() {
    mMain.GetPovRayCtrl().SetObserver({});
    mMain.GetPovRayCtrl().SetProgress({});
}

bool PovJob_cls::CanStart() {
    const PovRayCtrl_cls& control = mMain.GetPovRayCtrl();
    wxString error = control.FindObstacle();
    const wxString& renderer = control.mPathPovRay.GetValueText();
    if (error.empty() && mLine.mRunRenderer && access(ToBytes(renderer).c_str(), X_OK) != 0)
        error = renderer + ": the renderer is missing or cannot be run (PathPovRay=)";
    if (!error.empty()) PrintError(error);
    return error.empty();
}

JobResult PovJob_cls::Run() {
    if (!CanStart()) return JobResult::Failed;
    if (mMain.GetLightSRCCtrl().GetVisibleNumber() == 0) PrintError("note: no light shines in the scene");
    const JobResult result = mLine.mRunRenderer ? Render() : Write();
    mProgress.End();
    return result;
}

JobResult PovJob_cls::Write() {
    for (const int frame : mFrames) {
        const wxString error =
            mMain.GetPovRayCtrl().Export(frame, PovRayCtrl_cls::Series::Anim, frame == mFrames.front());
        if (Interrupt_cls::IsRaised()) return JobResult::Interrupted;
        if (!error.empty()) {
            mProgress.End();
            PrintError(error);
            return JobResult::Failed;
        }
        mProgress.Step(mMain.GetPovRayCtrl().GetFileStr(frame, PovRayCtrl_cls::Series::Anim) + ".pov");
    }
    return JobResult::Done;
}

int PovJob_cls::ChooseRenderers() {
    const auto processors = static_cast<double>(ShellCommand_cls::GetProcessors().size());
    const SnapData_cls* state =
        mSource.Prepare(mMain.GetTimeCtrl().GetRemappedIndexDouble(mFrames.front(), 0));
    const double particles = state ? static_cast<double>(state->GetCount()) / state->GetStride() : 0.0;
    const double memory =
        0.5 * static_cast<double>(sysconf(_SC_AVPHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
    const double fitting = memory / (particles * kByteOfParticle + kByteOfRenderer);
    return static_cast<int>(
        std::max(1.0, std::min({processors, static_cast<double>(mFrames.size()), fitting})));
}

JobResult PovJob_cls::Render() {
    PovRayCtrl_cls& control = mMain.GetPovRayCtrl();
    control.StartRenderPovAnim(mFrames, ChooseRenderers());
    const auto isOver = [&control] {
        while (control.IsBusy() && !Interrupt_cls::IsRaised()) control.ProcessRenderPovAnim();
        return Interrupt_cls::IsRaised() || !control.ProcessRenderPovAnim();
    };
    PollUntil(isOver, kRenderPeriodMs);
    if (Interrupt_cls::IsRaised()) {
        control.AbortRenderPovAnim();
        return JobResult::Interrupted;
    }
    return mFailed ? JobResult::Failed : JobResult::Done;
}
