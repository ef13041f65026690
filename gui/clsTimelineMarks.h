#pragma once

#include <vector>

#include "gui/clsTimelineModel.h"

/// The keys of a lane as they are drawn: those of one pixel merged to one mark, and only the visible ones.
/// The cost is that of looking at the visible keys; tens of thousands stay below a millisecond.
struct TimelineMarks_cls {
    struct Mark {
        int x = 0;  ///< pixels from the left end of the tracks
        unsigned int type = KeyFrame_cls::kLinear;
        bool mixed = false;  ///< keys of several types
        bool selected = false;
        bool operator==(const Mark&) const = default;
    };
    /// Marks from left to right between two places.
    static std::vector<Mark> Gather(const TimelineModel_cls& model, const TimelineKeys_cls::Lane& lane,
                                    int fromX, int toX);

    /// Marks so near each other that they are drawn as one bar, or a single one.
    struct Run {
        size_t first = 0;
        size_t last = 0;
    };
    /// Runs of equally selected marks. Marks nearer than `distance` pixels belong together where there are
    /// more than two.
    static std::vector<Run> GetRuns(const std::vector<Mark>& marks, int distance);
};
