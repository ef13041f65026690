#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One particle of the 40-byte record.
struct SampleParticle_cls {
    float position[3];
    float velocity[3];
    float radius;
    int32_t id;
    int32_t type;
    float value1;
};
static_assert(sizeof(SampleParticle_cls) == 40);

/// The bytes of values one after the other.
template <class... Values>
std::string Bytes(Values... values) {
    std::string bytes;
    (bytes.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
    return bytes;
}

/// A snapshot file in the default layout; `count` is what its header says.
inline std::string DefaultSnapshot(float time, int32_t count,
                                   const std::vector<SampleParticle_cls>& particles) {
    std::string bytes = Bytes(time, count);
    for (const SampleParticle_cls& particle : particles) bytes += Bytes(particle);
    return bytes;
}
