#pragma once

#include <wx/string.h>

#include <string>

#include "pov/clsPovParticleText.h"
#include "seam/clsOutputFile.h"

/// The scene of one frame on its way to its file, written in steps of some ten milliseconds. It owns all that
/// is left to write, so that settings and data may change between the steps. The file appears whole with the
/// last step; one that is given up leaves nothing.
/// Threads: GUI thread. Failure: GetError() says what went wrong; nothing more is done then.
class PovSceneFile_cls {
  public:
    struct Content {
        std::string head;  ///< before the particles
        PovCloud_cls cloud;
        PovTexture_cls texture;
        PovParticleText_cls::Sprites sprites;
        std::string tail;
    };

    PovSceneFile_cls(const wxString& path, Content content);

    /// True while there is more to do.
    bool Step();
    /// 0 to 1.
    double GetShare() const { return mParticles.GetShare(); }
    /// Empty, or what went wrong.
    const wxString& GetError() const { return mFile.GetError(); }

  private:
    OutputFile_cls mFile;
    PovText_cls mText;
    PovParticleText_cls mParticles;
    const std::string mTail;
};
