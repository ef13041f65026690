#pragma once

#include "data/clsAsciiReader.h"
#include "data/clsDataLoader.h"
#include "data/clsParticleTarget.h"
#include "seam/clsInputFile.h"

/// Fills the arrays of one snapshot from the body of its file, in the layout of the loader settings.
/// Failure: a body that ends early fills what is there and says so in the report.
class ThreadFileReader_cls {
  public:
    ThreadFileReader_cls(const DataLoader_cls& loader, const InputFile_cls& file,
                         const ParticleTarget_cls& target)
        : mLoader(loader), mFile(file), mTarget(target) {}

    BodyReport_cls Read() const { return mLoader.IsText() ? ReadAsciiBody() : ReadBinaryBody(); }

  private:
    BodyReport_cls ReadBinaryBody() const;
    BodyReport_cls ReadAsciiBody() const;

    const DataLoader_cls& mLoader;
    const InputFile_cls& mFile;
    ParticleTarget_cls mTarget;
};
