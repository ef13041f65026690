#pragma once

#include <functional>

#include "data/clsStepSplitter.h"

/// Makes the series that a project names in the cache again, when the cache was emptied, the project comes
/// from another user, or the data have changed since. Threads: GUI thread. Failure: told to the user when
/// nothing can be opened; what can is opened as it is.
class SeriesRestore_cls {
  public:
    /// Shows that a file is being split.
    using BeginProgress = std::function<StepSplitter_cls::Progress(const wxString& file)>;
    /// The front end's; none while there is no window.
    static void SetProgress(BeginProgress begin);

    /// What is to be opened for a name: the same, or the member in this user's cache that it stands for.
    static wxString Restore(const wxString& path);
};
