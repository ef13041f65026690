#include "core/clsFilm.h"

#include <algorithm>
#include <vector>

#include "core/clsFrameSource.h"
#include "core/clsInterrupt.h"
#include "core/clsMain.h"
#include "output/clsImageFile.h"
#include "output/clsMovie.h"
#include "render/clsOffscreenBuffer.h"
#include "render/clsOffscreenContext.h"
#include "seam/clsUserMessage.h"

namespace {

/// Frames that are read ahead of the one that is drawn.
constexpr int kAhead = 2;
/// Pictures on their way into files may take this much.
constexpr long long kMaxQueueByte = 1LL << 30;

int QueueThreads(int width, int height) {
    const long long bytes = 3LL * width * height;
    return static_cast<int>(
        std::clamp<long long>(kMaxQueueByte / bytes, 1, std::max(wxThread::GetCPUCount(), 1)));
}

int SamplesOf(const TimeCtrl_cls& time) {
    return time.GetSettings().IsMotionBlur() ? time.GetMotionBlur().GetSamples() : 1;
}

}  // namespace

Film_cls::Film_cls(Main_cls& main, FrameSource_cls& source, const CommandLine_cls& line,
                   const FrameSelection_cls& frames)
    : mMain(main),
      mSource(source),
      mLine(line),
      mFrames(frames),
      mNames(line.mPattern, frames.mFirst == frames.mLast),
      mSamples(SamplesOf(main.GetTimeCtrl())),
      mScene(main.GetSceneLinks()),
      mProgress((frames.mLast - frames.mFirst) / frames.mStep + 1, line.mQuiet),
      mQueue(QueueThreads(line.mWidth, line.mHeight), [this](const wxString& path, const wxString& error) {
          if (error.empty()) return mProgress.Step(path);
          Tell(error);
          mFailed = true;
      }) {}

Film_cls::~Film_cls() = default;

bool Film_cls::Open() {
    wxString why;
    mContext = OffscreenContext_cls::Create(&why);
    if (mContext) {
        mBuffer = OffscreenBuffer_cls::Create(mLine.mWidth, mLine.mHeight);
        why = wxString::Format("OpenGL has no frame buffer of %d x %d pixels", mLine.mWidth, mLine.mHeight);
    }
    if (mBuffer && !mLine.mMovie.empty())
        mMovie =
            Movie_cls::Start(mLine.mMovie, mLine.mWidth, mLine.mHeight,
                             mLine.mRate.value_or(Movie_cls::kDefaultRate), Interrupt_cls::IsRaised, &why);
    const bool open = mBuffer && (mMovie || mLine.mMovie.empty());
    if (!open) PrintError(why);
    return open;
}

void Film_cls::PlaceCamera() {
    // A camera that nobody has placed depends on the first data only, so that parts of a film rendered apart
    // fit together.
    const PanelSettings_cls& panel = mMain.GetPanelSettings(0);
    if (!IsCameraFree(mMain.GetCameraPath(), panel)) return;
    if (const SnapData_cls* first = mSource.Prepare(0.0)) mFitted = FitPanel(*first, panel);
}

JobResult Film_cls::Run() {
    if (!Open()) return JobResult::Failed;
    PlaceCamera();
    const JobResult result = DoSteps();
    mQueue.Collect(true);
    mProgress.End();
    if (result == JobResult::Done && mFailed) return JobResult::Failed;
    const wxString error = mMovie && result == JobResult::Done ? mMovie->Finish() : wxString();
    if (error.empty()) return result;
    if (Interrupt_cls::IsRaised()) return JobResult::Interrupted;
    PrintError(error);
    return JobResult::Failed;
}

JobResult Film_cls::DoSteps() {
    std::optional<Step_cls> step = MakeStep(mFrames.mFirst, 0);
    const SnapData_cls* state = step ? Prepare(*step) : nullptr;
    while (step && !mFailed) {
        if (Interrupt_cls::IsRaised()) return JobResult::Interrupted;
        if (step->complete) {
            SendToMovie(step->complete);
            mProgress.Step(mNames.Of(step->frame));
            step = After(*step);
            state = step ? Prepare(*step) : nullptr;
            continue;
        }
        Draw(*step, state);
        // The driver paints while the next particles are prepared.
        const std::optional<Step_cls> next = After(*step);
        state = next ? Prepare(*next) : nullptr;
        TakePicture(*step);
        step = next;
    }
    return mFailed ? JobResult::Failed : JobResult::Done;
}

std::optional<Film_cls::Step_cls> Film_cls::MakeStep(int frame, int sample) {
    if (frame > mFrames.mLast) return std::nullopt;
    TimeCtrl_cls& time = mMain.GetTimeCtrl();
    time.SetFrameNative(frame);
    time.SetStepNative(0);
    time.SetMotionBlurSample(sample);
    Step_cls step{frame, sample, time.GetDoubleIndex(), time.GetRemappedIndexDouble()};
    if (mLine.mResume && sample == 0) {
        auto found = ImageFile_cls::Read(mNames.Of(frame), mLine.mWidth, mLine.mHeight);
        if (found) step.complete = std::make_shared<const Picture_cls>(std::move(*found));
    }
    return step;
}

std::optional<Film_cls::Step_cls> Film_cls::After(const Step_cls& step) {
    const bool sameFrame = !step.complete && step.sample + 1 < mSamples;
    return sameFrame ? MakeStep(step.frame, step.sample + 1) : MakeStep(step.frame + mFrames.mStep, 0);
}

const SnapData_cls* Film_cls::Prepare(const Step_cls& step) {
    if (step.complete) return nullptr;
    std::vector<double> ahead;
    for (int k = 1; k <= kAhead; ++k) {
        const int frame = step.frame + k * mFrames.mStep;
        if (frame <= mFrames.mLast) ahead.push_back(mMain.GetTimeCtrl().GetRemappedIndexDouble(frame, 0));
    }
    return mSource.Prepare(step.position, ahead);
}

void Film_cls::Draw(const Step_cls& step, const SnapData_cls* state) {
    const PanelSettings_cls& panel = mMain.GetPanelSettings(0);
    if (step.sample == 0) mShownTime = state ? std::optional(state->GetTime()) : std::nullopt;
    mBuffer->Bind();
    mScene.Draw({.mPanel = panel,
                 .mCamera = ChooseCamera(mMain.GetCameraPath(), panel, step.time, mFitted),
                 .mTime = step.time,
                 .mState = state,
                 .mShownTime = mShownTime,
                 .mWidth = mLine.mWidth,
                 .mHeight = mLine.mHeight});
    mBuffer->Flush();
    if (!mScene.GetMessage().empty()) Tell(mScene.GetMessage());
}

void Film_cls::TakePicture(const Step_cls& step) {
    Picture_cls picture{mLine.mWidth, mLine.mHeight, mBuffer->ReadRGB()};
    if (mSamples > 1) {
        mAverage.Add(picture);
        if (step.sample + 1 < mSamples) return;
        picture = mAverage.Take();
    }
    picture.mJpegQuality = mMain.GetPreference().GetJpegQuality();
    const auto shared = std::make_shared<const Picture_cls>(std::move(picture));
    mQueue.Push(mNames.Of(step.frame), shared);
    SendToMovie(shared);
}

void Film_cls::SendToMovie(const std::shared_ptr<const Picture_cls>& picture) {
    // On an interrupt the film is given up with the job.
    if (!mMovie || mMovie->Push(picture) || Interrupt_cls::IsRaised()) return;
    const wxString error = mMovie->Finish();
    mMovie.reset();
    Tell(error);
    mFailed = true;
}

void Film_cls::Tell(const wxString& message) {
    if (!mTold.insert(message).second) return;
    mProgress.End();
    PrintError(wxString(message).Trim());
}
