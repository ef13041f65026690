#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "pov/clsPovCamera.h"
#include "pov/clsPovPalette.h"

/// The particles of one frame as they are drawn, in scene lengths. Plain data: nothing that the program
/// changes later is in it, so that it can be written bit by bit.
struct PovCloud_cls {
    struct Item {
        std::array<float, 3> position;
        float radius;
        uint32_t look;
    };

    std::vector<PovLook_cls> looks;
    std::vector<Item> items;  ///< spheres and points
    std::vector<Item> billboards;
    std::vector<PovCamera_cls::Facing> facings;  ///< of each billboard; a single one for all that are alike

    size_t GetCount() const { return items.size() + billboards.size(); }
    bool IsAnyTransparent() const {
        return std::any_of(looks.begin(), looks.end(),
                           [](const PovLook_cls& look) { return look.IsTransparent(); });
    }
};
