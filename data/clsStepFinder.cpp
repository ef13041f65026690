#include "data/clsStepFinder.h"

#include <algorithm>

#include "data/clsSnapshotHeader.h"
#include "data/clsTextCursor.h"

namespace {

/// Goes behind the next line feeds, at most `count`; returns how many there were.
uint64_t PassLines(std::string_view* lines, uint64_t count) {
    const auto there = static_cast<uint64_t>(std::ranges::count(*lines, '\n'));
    if (there <= count) {
        *lines = {};
        return there;
    }
    for (uint64_t i = 0; i < count; ++i) lines->remove_prefix(lines->find('\n') + 1);
    return count;
}

}  // namespace

std::vector<size_t> StepFinder_cls::Find(std::string_view lines) {
    return mStepLine.empty() ? FindCounts(lines) : FindStepLines(lines);
}

std::vector<size_t> StepFinder_cls::FindStepLines(std::string_view lines) const {
    std::vector<size_t> starts;
    if (lines.starts_with(mStepLine)) starts.push_back(0);
    const std::string wanted = "\n" + mStepLine;
    for (size_t at = lines.find(wanted); at != std::string_view::npos; at = lines.find(wanted, at + 1))
        starts.push_back(at + 1);
    return starts;
}

std::vector<size_t> StepFinder_cls::FindCounts(std::string_view lines) {
    std::vector<size_t> starts;
    const size_t whole = lines.size();
    while (mFailure.empty()) {
        mLinesLeft -= PassLines(&lines, mLinesLeft);
        if (lines.empty()) break;
        const size_t start = whole - lines.size();
        const std::string_view line = TakeLine(&lines);
        TextCursor_cls cursor(line);
        int32_t count = 0;
        if (cursor.TakeWord().empty()) continue;  // blank lines may stand between steps
        cursor = TextCursor_cls(line);
        if (!cursor.ReadInteger(&count) || count < 0) {
            mFailure = "behind step " + std::to_string(mSteps) + " stands no number of particles";
            break;
        }
        starts.push_back(start);
        ++mSteps;
        // A comment and the particles.
        mLinesLeft = static_cast<uint64_t>(count) + 1;
    }
    return starts;
}
