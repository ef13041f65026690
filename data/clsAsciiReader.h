#pragma once

#include <string_view>
#include <vector>

#include "data/clsBodyReport.h"
#include "data/clsGrammerBase.h"
#include "data/clsParticleTarget.h"
#include "data/clsTextCursor.h"

/// Reads particle records from text, one a line, columns in the order of the body grammar.
/// Blank lines and lines that start with "#" are no records. Columns are separated by blanks, tabs, commas or
/// semicolons; columns behind the last one asked for are ignored; a dummy column skips any word.
/// A record is never dropped, for its place in the file tells which particle it is: a value that cannot be
/// read becomes 0, a position component not a number, so that the particle is not drawn. Exponents may be
/// written with e, E, d or D. Plain functions on memory: no files, no threads.
class AsciiReader_cls {
  public:
    explicit AsciiReader_cls(const GrammerBase_cls& grammer);

    /// Fills records from `first` on with the lines of the text, at most up to the target's count.
    BodyReport_cls Read(std::string_view text, int first, const ParticleTarget_cls& target) const;

    /// Number of lines that hold a record; counting stops at `most`.
    static int CountRecords(std::string_view text, int most);

  private:
    bool ReadRecord(TextCursor_cls* line, size_t particle, const ParticleTarget_cls& target) const;

    std::vector<int> mCodes;
};
