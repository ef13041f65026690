#include "output/clsThreadWriteMovie.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

ThreadWriteMovie_cls::ThreadWriteMovie_cls(int pipe, std::shared_ptr<const Picture_cls> picture)
    : mPipe(pipe), mPicture(std::move(picture)) {}

wxThread::ExitCode ThreadWriteMovie_cls::Entry() {
    const uint8_t* bytes = mPicture->mRGB.data();
    size_t left = mPicture->mRGB.size();
    while (left > 0 && !mFailed) {
        const ssize_t wrote = write(mPipe, bytes, left);
        if (wrote > 0) {
            bytes += wrote;
            left -= static_cast<size_t>(wrote);
        } else {
            mFailed = wrote == 0 || errno != EINTR;
        }
    }
    mFinished.store(true, std::memory_order_release);
    return nullptr;
}
