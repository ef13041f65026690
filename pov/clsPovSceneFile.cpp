#include "pov/clsPovSceneFile.h"

#include <utility>

PovSceneFile_cls::PovSceneFile_cls(const wxString& path, Content content)
    : mFile(path),
      mText(mFile),
      mParticles(std::move(content.cloud), content.texture, std::move(content.sprites)),
      mTail(std::move(content.tail)) {
    mText << content.head;
}

bool PovSceneFile_cls::Step() {
    if (GetError().empty() && mParticles.Step(mText)) return true;
    mText << mTail;
    mText.Flush();
    mFile.Commit(OutputFile_cls::Sync::No);
    return false;
}
