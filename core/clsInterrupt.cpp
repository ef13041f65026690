#include "core/clsInterrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int) {
    interrupted = 1;
}

}  // namespace

void Interrupt_cls::Install() {
    std::signal(SIGINT, OnInterrupt);
    std::signal(SIGTERM, OnInterrupt);
}

bool Interrupt_cls::IsRaised() {
    return interrupted != 0;
}
