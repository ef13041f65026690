#pragma once

#include <array>

#include "render/clsArrayAndIndex.h"
#include "render/clsSortThread.h"

/// Worker that writes the entries of a range of particles, with their keys.
/// Threads: reads the positions, writes its own entries.
class ThreadSortPrepare_cls final : public SortThread_cls {
  public:
    enum Mode {
        kProjection = 0,  ///< minus the projection on the view direction
        kFarFirst = 1,    ///< minus the squared distance from the camera, in units
        kNearFirst = 2    ///< the squared distance from the camera, in units
    };
    struct Task {
        ArrayAndIndex_cls* entries;  ///< of all particles: particle i's is at i / step
        const float* positions;
        long long begin;  ///< first particle, a multiple of the step
        long long end;
        long long step;
        std::array<float, 3> camera;
        std::array<float, 3> direction;
        Mode mode;
        float unit;  ///< lengths are multiplied by it before they are squared
    };

    explicit ThreadSortPrepare_cls(const Task& task) : mTask(task) {}

  private:
    void Work() override;
    template <class Key>
    void Fill(const Key& key) const;

    const Task mTask;
};
