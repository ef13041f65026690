#pragma once

#include <wx/string.h>

/// How far a long job is, on standard error: a bar on a terminal, a line for each finished picture in a log.
class Progress_cls {
  public:
    Progress_cls(int steps, bool quiet);
    /// One step is done; the name of what it made.
    void Step(const wxString& name);
    /// Leaves the line of the bar.
    void End();

  private:
    int mSteps;
    int mDone = 0;
    bool mQuiet;
    bool mTerminal;
};
