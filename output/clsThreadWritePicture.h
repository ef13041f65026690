#pragma once

#include <wx/string.h>

#include <atomic>
#include <memory>

#include "output/clsPicture.h"
#include "seam/clsJoinedThread.h"

/// Encodes one picture and writes its file. Owned by PictureQueue_cls, which joins it.
/// Threads: the name and the picture are set before it starts, the error is read after it has finished.
class ThreadWritePicture_cls : public JoinedThread_cls {
  public:
    ThreadWritePicture_cls(const wxString& path, std::shared_ptr<const Picture_cls> picture);
    ~ThreadWritePicture_cls() override { Join(); }

    const std::atomic<bool>& GetFinished() const { return mFinished; }
    const wxString& GetPath() const { return mPath; }
    /// What went wrong, empty for nothing.
    const wxString& GetError() const { return mError; }

  private:
    ExitCode Entry() override;

    const wxString mPath;
    const std::shared_ptr<const Picture_cls> mPicture;
    wxString mError;
    std::atomic<bool> mFinished{false};
};
