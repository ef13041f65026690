#pragma once

#include <memory>
#include <optional>
#include <set>

#include "core/clsCommandLine.h"
#include "core/clsJobResult.h"
#include "core/clsProgress.h"
#include "output/clsFrameNames.h"
#include "output/clsPictureQueue.h"
#include "output/clsSampleAverage.h"
#include "scene/clsScenePass.h"

class FrameSource_cls;
class Main_cls;
class Movie_cls;
class OffscreenBuffer_cls;
class OffscreenContext_cls;

/// The job of --render: draws frames into pictures, and into a movie if one is wanted, without a display.
/// While a frame is drawn the next are read and those before are compressed, so that the slowest of the three
/// sets the pace. The same frame gives the same bytes, whatever other frames are drawn with it.
/// Threads: GUI thread. Failure: told on standard error; what was written is whole.
class Film_cls {
  public:
    Film_cls(Main_cls& main, FrameSource_cls& source, const CommandLine_cls& line,
             const FrameSelection_cls& frames);
    ~Film_cls();

    JobResult Run();

  private:
    /// One sample of one frame: a whole frame unless there is motion blur.
    struct Step_cls {
        int frame = 0;
        int sample = 0;
        double time = 0.0;                              ///< normalised
        double position = 0.0;                          ///< in the data
        std::shared_ptr<const Picture_cls> complete{};  ///< the frame's picture when it need not be drawn
    };

    bool Open();
    void PlaceCamera();
    JobResult DoSteps();
    /// Null behind the last frame.
    std::optional<Step_cls> MakeStep(int frame, int sample);
    std::optional<Step_cls> After(const Step_cls& step);
    const SnapData_cls* Prepare(const Step_cls& step);
    void Draw(const Step_cls& step, const SnapData_cls* state);
    void TakePicture(const Step_cls& step);
    void SendToMovie(const std::shared_ptr<const Picture_cls>& picture);
    void Tell(const wxString& message);

    Main_cls& mMain;
    FrameSource_cls& mSource;
    const CommandLine_cls& mLine;
    const FrameSelection_cls mFrames;
    const FrameNames_cls mNames;
    const int mSamples;

    std::unique_ptr<OffscreenContext_cls> mContext;
    std::unique_ptr<OffscreenBuffer_cls> mBuffer;
    ScenePass_cls mScene;
    std::optional<PositionAndDirection_cls> mFitted;
    std::optional<double> mShownTime;  ///< of the frame, whichever sample is drawn
    SampleAverage_cls mAverage;
    std::unique_ptr<Movie_cls> mMovie;
    Progress_cls mProgress;
    std::set<wxString> mTold;
    bool mFailed = false;
    PictureQueue_cls mQueue;  ///< last: its threads end before all else
};
