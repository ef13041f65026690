#pragma once

#include <string>
#include <vector>

#include "support/SampleData.h"
#include "support/TempFolder.h"

/// Writes a series of snapshots in the default layout: a square of particles that moves along x. Returns the
/// first file's name.
inline std::string WriteMovingCloud(const TempFolder_cls& folder, int snapshots, int side = 30) {
    for (int s = 0; s < snapshots; ++s) {
        std::vector<SampleParticle_cls> particles;
        for (int i = 0; i < side * side; ++i) {
            const auto x = static_cast<float>(i % side) / static_cast<float>(side);
            const auto y = static_cast<float>(i / side) / static_cast<float>(side);
            particles.push_back({.position = {x + 0.2F * static_cast<float>(s), y, 0.1F * x},
                                 .velocity = {0.2F, 0.0F, 0.0F},
                                 .radius = 0.01F,
                                 .id = i,
                                 .type = 0,
                                 .value1 = y});
        }
        std::string name = std::to_string(s);
        name.insert(0, 4 - name.size(), '0');
        folder.Write("cloud" + name + ".dat", DefaultSnapshot(static_cast<float>(s), side * side, particles));
    }
    return folder.File("cloud0000.dat");
}
