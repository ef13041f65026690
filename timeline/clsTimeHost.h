#pragma once

#include <functional>

class Parameters_cls;

/// What the timeline reaches above itself. Made by the core, given at construction; any function may be
/// missing. Threads: called on the GUI thread only.
struct TimeHost_cls {
    /// Calls the function with every animated parameter of the scene. The time remap's own may be left out.
    std::function<void(const std::function<void(Parameters_cls&)>&)> forEachParameter;
    /// Tags the snapshots that keys fall on, so that they leave the memory last: no tags, then one after
    /// another.
    std::function<void()> clearSnipping;
    std::function<void(int snapshot)> setSnipping;
    /// Playback has moved on: the view panels show the new instant.
    std::function<void()> refreshViews;
    /// The controls of the time remap are shown only while it is on.
    std::function<void(bool shown)> hideAndShowRemap;
};
