#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Finds where the time steps begin in a text file that is handed over in pieces of whole lines.
/// Plain functions on memory; no files, no threads.
/// Failure: text that is no step of an XYZ file ends the search, see GetFailure().
class StepFinder_cls {
  public:
    /// For a LAMMPS dump: the line that every step begins with. Empty for an XYZ file, whose counts tell.
    explicit StepFinder_cls(std::string stepLine) : mStepLine(std::move(stepLine)) {}

    /// Looks through the next lines of the file: the places in them at which steps begin.
    std::vector<size_t> Find(std::string_view lines);
    /// Why no further steps are looked for, in words; empty while they are.
    const std::string& GetFailure() const { return mFailure; }

  private:
    std::vector<size_t> FindStepLines(std::string_view lines) const;
    std::vector<size_t> FindCounts(std::string_view lines);

    std::string mStepLine;
    uint64_t mLinesLeft = 0;  ///< XYZ: lines of the step under way still to come
    uint64_t mSteps = 0;
    std::string mFailure;
};
