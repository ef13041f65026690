#pragma once

#include <cstdint>
#include <cstring>

/// Four numbers that the processor compares at once.
using Four = int32_t __attribute__((vector_size(16)));

inline Four LoadFour(const int32_t* numbers) {
    Four four{};
    std::memcpy(&four, numbers, sizeof four);
    return four;
}
