#pragma once

#include <wx/string.h>

#include <vector>

#include "timeline/clsKeyFrame.h"

/// Copied keys as text, so that they can be pasted into another running program, or mailed.
/// Format: the line "VarnholtKeys", then for each parameter a line "itemnum " with its number of keys and one
/// line per key as in project files, with all digits.
class KeyClipboard_cls {
  public:
    /// One row of keys for each parameter, in their order; a row may be empty.
    using Rows = std::vector<std::vector<KeyFrame_cls>>;

    static wxString Write(const Rows& rows);
    /// No rows for any other text. Lines that are no keys are left out; rows end up sorted, with all keys
    /// selected.
    static Rows Read(const wxString& text);
    /// The earliest time of all rows, 0 when they are empty.
    static double GetFirstTime(const Rows& rows);
};
