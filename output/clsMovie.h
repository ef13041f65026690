#pragma once

#include <sys/types.h>

#include <wx/string.h>

#include <functional>
#include <memory>

#include "output/clsPicture.h"

class ThreadWriteMovie_cls;

/// A film file in the making: its frames go, uncompressed, to a running ffmpeg, which must be installed. The
/// file appears under its name when it is whole; until then ffmpeg writes a hidden file beside it.
/// One frame is on its way at a time, so ffmpeg works while the next one is drawn.
/// Threads: GUI thread. Destroyed before Finish(), or given up while ffmpeg is awaited, nothing stays of it.
class Movie_cls {
  public:
    /// Frames a second. The default is the pace of playback, which every player knows.
    static constexpr int kDefaultRate = 30;
    static constexpr int kHighestRate = 240;

    /// Null, and why, when ffmpeg cannot be started. `isGivenUp` is asked whenever ffmpeg is awaited, which
    /// may stand still: true ends it.
    static std::unique_ptr<Movie_cls> Start(const wxString& path, int width, int height, int rate,
                                            std::function<bool()> isGivenUp, wxString* why);
    ~Movie_cls();
    Movie_cls(const Movie_cls&) = delete;
    Movie_cls& operator=(const Movie_cls&) = delete;

    /// Waits for the frame before. False when ffmpeg does not take any more.
    bool Push(std::shared_ptr<const Picture_cls> picture);
    /// Empty, or what went wrong.
    wxString Finish();

  private:
    Movie_cls(const wxString& path, const wxString& temporary, std::function<bool()> isGivenUp, pid_t process,
              int pipe);
    bool WaitForFrame();
    /// Asks ffmpeg, and whatever it is made of, to end, and forces it to after a moment.
    void EndEncoder();
    /// Waits until ffmpeg has ended or is given up. True when it says that the film is whole.
    bool WaitForEncoder();
    bool HasEncoderEnded();

    wxString mPath;
    wxString mTemporary;
    std::function<bool()> mIsGivenUp;
    pid_t mProcess;  ///< -1 once it has ended
    int mStatus = -1;
    int mPipe;
    bool mBroken = false;
    std::unique_ptr<ThreadWriteMovie_cls> mFrame;
};
