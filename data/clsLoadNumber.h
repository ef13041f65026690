#pragma once

#include <cstring>

/// A number in native byte order from bytes of any alignment. Threads: any.
template <class Number>
Number LoadNumber(const char* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}
