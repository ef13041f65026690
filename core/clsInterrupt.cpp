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
    // Who starts the program under nohup wants it to outlive the terminal.
    if (std::signal(SIGHUP, OnInterrupt) == SIG_IGN) std::signal(SIGHUP, SIG_IGN);
}

bool Interrupt_cls::IsRaised() {
    return interrupted != 0;
}
