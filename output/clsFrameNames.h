#pragma once

#include <wx/string.h>

#include "data/clsFileSequence.h"

/// The file of each frame of a job. A single frame gets the name as it stands, also when that ends in a
/// number; a name with a number pattern is always filled in.
class FrameNames_cls {
  public:
    FrameNames_cls(const wxString& pattern, bool single)
        : mFiles(pattern), mAsItStands(single && mFiles.GetPath() != mFiles.GetFormat()) {}

    wxString Of(int frame) const { return mAsItStands ? mFiles.GetPath() : mFiles.GetModifiedStr(frame); }

  private:
    FileSequence_cls mFiles;
    bool mAsItStands;
};
