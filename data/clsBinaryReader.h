#pragma once

#include <span>
#include <vector>

#include "data/clsAsciiReader.h"
#include "data/clsGrammerBase.h"
#include "data/clsParticleTarget.h"

/// Cuts binary particle records of any layout into the arrays of a snapshot. Native byte order.
/// Plain functions on memory: no files, no threads.
class BinaryReader_cls {
  public:
    explicit BinaryReader_cls(const GrammerBase_cls& grammer);

    size_t GetRecordByte() const { return mRecordByte; }
    /// Fills records from `first` on; the bytes hold whole records.
    BodyReport_cls Read(std::span<const char> bytes, int first, const ParticleTarget_cls& target) const;

  private:
    struct Item {
        int code;
        size_t offset;
    };

    std::vector<Item> mItems;
    size_t mRecordByte;
};
