#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "seam/clsInputFile.h"

/// Cuts a text file into pieces of whole lines, in the order of the file, each small enough to stay in the
/// processor's cache. A line that does not fit into a piece makes that piece as long as the line.
/// Threads: one. Failure: std::bad_alloc; a read error ends the lines, see GetFailure().
class LinePieces_cls {
  public:
    /// The first lines of the file are passed over.
    LinePieces_cls(const InputFile_cls& file, unsigned int linesBefore)
        : mFile(file), mLinesBefore(linesBefore) {}

    /// Reads the next piece. The lines lie in the buffer, which grows when it has to. False at the end.
    bool Next(std::vector<char>* buffer, std::string_view* lines);
    /// Why the file could not be read to its end, in words; empty when it could.
    const std::string& GetFailure() const { return mFailure; }

    /// Bytes of the file read so far.
    uint64_t GetPosition() const { return mPosition; }

    /// Lines of the file that hold a record, at most as many as an int counts.
    static int CountRecords(const InputFile_cls& file, unsigned int linesBefore);

  private:
    const InputFile_cls& mFile;
    unsigned int mLinesBefore;
    uint64_t mPosition = 0;
    bool mEnded = false;
    std::string mRest;  ///< start of a line whose end is in the next piece
    std::string mFailure;
};
