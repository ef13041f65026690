#include "seam/clsDiagnostics.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace {
std::atomic<bool> diagnosticsOn{true};
std::function<void()> lastWork;
/// Held while the work is done: another thread may not end the program meanwhile. Recursive, for the work may
/// itself meet what ends the program.
std::recursive_mutex lastWorkLock;
}  // namespace

void PrintDiagnostic(const char* format, ...) {
    if (!diagnosticsOn.load(std::memory_order_relaxed)) return;
    va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
}

void SetDiagnosticsOn(bool on) {
    diagnosticsOn.store(on, std::memory_order_relaxed);
}

void HardStop(const char* words) {
    std::printf("%s\n", words);
    DoLastWork();
    std::exit(0);
}

void SetLastWork(std::function<void()> work) {
    const std::lock_guard lock(lastWorkLock);
    lastWork = std::move(work);
}

void DoLastWork() {
    const std::lock_guard lock(lastWorkLock);
    if (const auto work = std::exchange(lastWork, {})) work();
}
