#pragma once

#include <string>
#include <vector>

#include "support/SampleData.h"
#include "support/TempFolder.h"

/// Writes a series of snapshots in the default layout: a square of particles that moves along x. Returns the
/// first file's name.
inline std::string WriteMovingCloud(const TempFolder_cls& folder, int snapshots) {
    constexpr int kSide = 30;
    for (int s = 0; s < snapshots; ++s) {
        std::vector<SampleParticle_cls> particles;
        for (int i = 0; i < kSide * kSide; ++i) {
            const auto x = static_cast<float>(i % kSide) / kSide;
            const auto y = static_cast<float>(i / kSide) / kSide;
            particles.push_back({.position = {x + 0.2F * static_cast<float>(s), y, 0.1F * x},
                                 .velocity = {0.2F, 0.0F, 0.0F},
                                 .radius = 0.01F,
                                 .id = i,
                                 .type = 0,
                                 .value1 = y});
        }
        std::string name = std::to_string(s);
        name.insert(0, 4 - name.size(), '0');
        folder.Write("cloud" + name + ".dat",
                     DefaultSnapshot(static_cast<float>(s), kSide * kSide, particles));
    }
    return folder.File("cloud0000.dat");
}
