#pragma once

#include <wx/string.h>

/// Folders of the user that hold what outlives a run: nothing here makes them.
/// Threads: GUI thread.
class UserFolder_cls {
  public:
    /// Where settings of this program are kept: `$XDG_CONFIG_HOME/varnholt3`, usually `~/.config/varnholt3`.
    static wxString GetConfig();
};
