#pragma once

#include <span>
#include <vector>

#include "data/clsBodyReport.h"
#include "data/clsGrammerBase.h"
#include "data/clsParticleTarget.h"

/// Cuts binary particle records of any layout into the arrays of a snapshot. Native byte order. The layout is
/// walked once, when the reader is made; records are then cut item by item in groups that stay in the
/// processor's nearest cache, which is as fast as code written for one layout.
/// Counted as bad are records whose position is not finite; their values are stored as they are.
/// Plain functions on memory: no files, no threads.
class BinaryReader_cls {
  public:
    explicit BinaryReader_cls(const GrammerBase_cls& grammer);

    size_t GetRecordByte() const { return mRecordByte; }
    /// Fills records from `first` on with the whole records in the bytes, at most up to the target's count.
    BodyReport_cls Read(std::span<const char> bytes, int first, const ParticleTarget_cls& target) const;

  private:
    struct Item {
        int code;
        size_t offset;
    };

    int ReadGroup(const char* records, size_t count, size_t first, const ParticleTarget_cls& target) const;

    std::vector<Item> mItems;
    size_t mRecordByte;
    bool mIsDefaultRecord;
};
