#include "interp/clsSnapSource.h"

#include <algorithm>

#include "data/clsPDataBlock.h"

SnapSource_cls SnapSource_cls::Of(const PDataBlock_cls& block) {
    return {.block = &block,
            .count = std::max(block.GetCount(), 0),
            .time = block.GetTime(),
            .position = block.GetPosition(),
            .velocity = block.GetVelocity(),
            .radius = block.GetRadius(),
            .radiusWork = block.GetRadiusWork(),
            .value1 = block.GetValue1(),
            .value1Work = block.GetValue1Work(),
            .type = block.GetType(),
            .id = block.GetID()};
}
