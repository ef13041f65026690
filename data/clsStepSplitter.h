#pragma once

#include <functional>
#include <string>

#include "data/clsFileStart.h"
#include "data/clsSeriesFolder.h"
#include "seam/clsInputFile.h"

/// Copies the time steps of one text file into files of their own, in a folder of the cache. Reads the file
/// once; as fast as the disk. The folder appears when it is whole; one that is there already, of the same
/// file as it is now, is used as it stands. Threads: GUI thread, which the progress keeps alive. Failure: in
/// words; nothing is left behind. At text that is no step the series ends, and the words say so.
class StepSplitter_cls {
  public:
    /// Told after every few megabytes. False cancels.
    using Progress = std::function<bool(uint64_t doneByte, uint64_t allByte)>;

    struct Result {
        wxString first;  ///< the file to open; empty when there is none
        wxString words;  ///< why it failed, or what was left out
        bool cancelled = false;
        size_t steps = 0;
    };

    /// The first of several steps as if it were a file of its own; where it is longer than the start of a
    /// file, the size is the steps' own, about.
    static FileStart_cls FirstStep(const FileStart_cls& start, double stepByte);

    /// `path` is a LAMMPS dump or an XYZ file.
    static Result Split(const wxString& path, const Progress& progress);
};
