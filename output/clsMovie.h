#pragma once

#include <sys/types.h>

#include <wx/string.h>

#include <memory>

#include "output/clsPicture.h"

class ThreadWriteMovie_cls;

/// A film file in the making: its frames go, uncompressed, to a running ffmpeg, which must be installed. The
/// file appears under its name when it is whole; until then ffmpeg writes a hidden file beside it.
/// One frame is on its way at a time, so ffmpeg works while the next one is drawn.
/// Threads: GUI thread. Destroyed before Finish(), the film is given up and nothing stays of it.
class Movie_cls {
  public:
    /// Null, and why, when ffmpeg cannot be started.
    static std::unique_ptr<Movie_cls> Start(const wxString& path, int width, int height, wxString* why);
    ~Movie_cls();
    Movie_cls(const Movie_cls&) = delete;
    Movie_cls& operator=(const Movie_cls&) = delete;

    /// Waits for the frame before. False when ffmpeg does not take any more.
    bool Push(std::shared_ptr<const Picture_cls> picture);
    /// Empty, or what went wrong.
    wxString Finish();

  private:
    Movie_cls(const wxString& path, const wxString& temporary, pid_t process, int pipe);
    bool WaitForFrame();

    wxString mPath;
    wxString mTemporary;
    pid_t mProcess;
    int mPipe;
    bool mBroken = false;
    std::unique_ptr<ThreadWriteMovie_cls> mFrame;
};
