#include "data/clsThreadAsciiReader.h"

std::atomic<unsigned int> GThreadNumberReadAscii{4};
