#pragma once

#include <cstdint>
#include <string>

/// Feeds mutated bytes to everything that reads what users' files say: headers, text and binary records,
/// loader lines, configuration items. Bytes in memory only: no threads, no files. The inputs follow from the
/// seed. Returns what an input broke, with that input; empty when all went well. Overruns are left to the
/// sanitizers.
std::string RunFuzz(uint64_t inputs, uint64_t seed);
