#pragma once

#include "data/clsAsciiReader.h"
#include "data/clsBinaryReader.h"
#include "data/clsBodyReport.h"
#include "data/clsDataLoader.h"
#include "data/clsParticleAdjuster.h"
#include "data/clsParticleTarget.h"
#include "seam/clsInputFile.h"

/// Reads the body of one snapshot file into the arrays of a block, in the layout of the loader settings, and
/// applies the loader's transforms and order. A copy of the settings as they were when it was made.
/// Arrays that the grammar does not fill are left alone: the block hands them over as zeros.
/// Threads: Read() blocks its caller and uses threads of its own, which are joined when it returns.
/// Failure: a body that ends early or cannot be read on gives the particles before that place; when memory
/// runs out there are none. The report says so; nothing is thrown.
class BodyReader_cls {
  public:
    BodyReader_cls(const DataLoader_cls& loader, const ParticleTarget_cls& target);

    BodyReport_cls Read(const InputFile_cls& file) const;

  private:
    BodyReport_cls ReadBinaryBody(const InputFile_cls& file) const;
    BodyReport_cls ReadAsciiBody(const InputFile_cls& file) const;
    int GetBinaryProgressStep() const;

    BinaryReader_cls mBinary;
    AsciiReader_cls mAscii;
    ParticleAdjuster_cls mAdjuster;
    ParticleTarget_cls mTarget;
    unsigned int mHeaderByte;
    unsigned int mHeaderLine;
    bool mIsText;
    bool mIsDefaultRecord;
};
