#include "core/clsProgress.h"

#include <unistd.h>

#include <cstdio>

#include "seam/clsTextCoding.h"

namespace {
constexpr int kBarWidth = 40;
}

Progress_cls::Progress_cls(int steps, bool quiet)
    : mSteps(steps), mQuiet(quiet), mTerminal(isatty(STDERR_FILENO) != 0) {}

void Progress_cls::Step(const wxString& name) {
    ++mDone;
    if (mQuiet) return;
    const std::string bytes = ToBytes(name);
    if (!mTerminal) {
        std::fprintf(stderr, "%d/%d %s\n", mDone, mSteps, bytes.c_str());
        return;
    }
    const int filled = kBarWidth * mDone / mSteps;
    std::fprintf(stderr, "\r[%s%s] %d/%d %s\033[K", std::string(static_cast<size_t>(filled), '=').c_str(),
                 std::string(static_cast<size_t>(kBarWidth - filled), ' ').c_str(), mDone, mSteps,
                 bytes.c_str());
    std::fflush(stderr);
}

void Progress_cls::End() {
    if (!mQuiet && mTerminal && mDone > 0) std::fputc('\n', stderr);
}
