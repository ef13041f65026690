#include "output/clsThreadWritePicture.h"

#include <new>
#include <utility>

#include "output/clsImageFile.h"

ThreadWritePicture_cls::ThreadWritePicture_cls(const wxString& path,
                                               std::shared_ptr<const Picture_cls> picture)
    : mPath(path.Clone()), mPicture(std::move(picture)) {}

wxThread::ExitCode ThreadWritePicture_cls::Entry() {
    try {
        mError = ImageFile_cls::Write(mPath, *mPicture);
    } catch (const std::bad_alloc&) {
        mError = mPath + ": not enough memory for the picture";
    }
    mFinished.store(true, std::memory_order_release);
    return nullptr;
}
