#pragma once

#include <wx/string.h>

#include <vector>

#include "output/clsMovie.h"

class PanelSettings_cls;

/// What pictures of the scene are to be saved: which frames, how large, under which names. A picture is made
/// by the program itself without a window, so a sequence saved here and one made on the command line are the
/// same, byte for byte.
/// Owned by whoever offers to save. Threads: GUI thread. Units: frames, pixels.
class ImgSequence_cls {
  public:
    wxString mPattern;  ///< "film%04d.png"; the ending chooses the format
    int mFirst = 0;
    int mLast = 0;
    int mStep = 1;
    int mWidth = 1280;
    int mHeight = 720;
    wxString mMovie;                      ///< also a film of this name; empty for none
    int mRate = Movie_cls::kDefaultRate;  ///< its frames a second
    bool mResume = false;                 ///< pictures that are complete stay

    int GetFrames() const { return (mLast - mFirst) / mStep + 1; }
    /// Several frames need a number in their names: asks whether to append one. False when the answer is no,
    /// and nothing may be written.
    bool EnsureNumbered();
    /// Asks, where pictures or a film of these names are there and would be lost. False when the answer is
    /// no.
    bool MayReplace() const;
    /// The program's arguments that save what the panel shows of the project.
    std::vector<wxString> MakeArguments(const wxString& project, const PanelSettings_cls& panel) const;
};
