#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "output/clsThreadWritePicture.h"

/// Pictures on their way into files, several at a time, so that compressing does not hold up drawing. They
/// are reported in the order in which they came. Bounded: whoever brings one too many waits for the oldest.
/// Threads: GUI thread. Destroyed, it waits for all without reporting them.
class PictureQueue_cls {
  public:
    /// Told of each picture that is done: its name, and what went wrong, empty for nothing.
    using Report = std::function<void(const wxString& path, const wxString& error)>;

    /// As many threads as this at a time, at least 1.
    PictureQueue_cls(int threads, Report report);

    void Push(const wxString& path, std::shared_ptr<const Picture_cls> picture);
    /// Reports those that are done, the oldest first; with `all` it waits for every one.
    void Collect(bool all);

  private:
    void ReportOldest();

    const size_t mThreads;
    Report mReport;
    std::deque<std::unique_ptr<ThreadWritePicture_cls>> mRunning;
};
