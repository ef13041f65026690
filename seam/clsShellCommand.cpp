#include "seam/clsShellCommand.h"

#include <fcntl.h>
#include <sched.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include "seam/clsClock.h"
#include "seam/clsTextCoding.h"

namespace {

constexpr int kCommandPeriodMs = 5;
/// A command that is asked to end gets so long before it is forced to.
constexpr int kGraceMs = 2000;

/// Keeps this thread, and so the processes it starts, on the given processors until it is destroyed.
class OnProcessors_cls {
  public:
    explicit OnProcessors_cls(const std::vector<int>& processors) {
        mChanged = !processors.empty() && sched_getaffinity(0, sizeof mBefore, &mBefore) == 0;
        if (!mChanged) return;
        cpu_set_t wanted;
        CPU_ZERO(&wanted);
        for (const int processor : processors) CPU_SET(static_cast<size_t>(processor), &wanted);
        sched_setaffinity(0, sizeof wanted, &wanted);
    }
    ~OnProcessors_cls() {
        if (mChanged) sched_setaffinity(0, sizeof mBefore, &mBefore);
    }
    OnProcessors_cls(const OnProcessors_cls&) = delete;
    OnProcessors_cls& operator=(const OnProcessors_cls&) = delete;

  private:
    cpu_set_t mBefore{};
    bool mChanged = false;
};

}  // namespace

bool ShellCommand_cls::IsHarmless(const wxString& word) {
    return !word.empty() && std::all_of(word.begin(), word.end(), [](wxUniChar c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' ||
               c == '.' || c == '_' || c == '-' || c == '+' || c == ',' || c == ':' || c == '@' || c == '%';
    });
}

wxString ShellCommand_cls::Quote(const wxString& word) {
    if (IsHarmless(word)) return word;
    wxString quoted = word;
    quoted.Replace("'", "'\\''");
    return "'" + quoted + "'";
}

std::vector<int> ShellCommand_cls::GetProcessors() {
    cpu_set_t allowed;
    std::vector<int> processors;
    if (sched_getaffinity(0, sizeof allowed, &allowed) == 0) {
        for (int i = 0; i < CPU_SETSIZE; ++i) {
            if (CPU_ISSET(static_cast<size_t>(i), &allowed)) processors.push_back(i);
        }
    }
    if (processors.empty()) processors.push_back(0);
    return processors;
}

int ShellCommand_cls::Run(const wxString& command) {
    if (IsStopped()) return kNotStarted;
    const int process = Start(ToBytes(command));
    return process < 0 ? kNotStarted : Await(process);
}

int ShellCommand_cls::Start(const std::string& command) const {
    const OnProcessors_cls processors(mProcessors);
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&actions) != 0) return -1;
    posix_spawnattr_init(&attributes);

    // Nobody sits at a terminal to answer.
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (!mLog.empty()) {
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, ToBytes(mLog).c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0666);
        posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    }
    if (!mFolder.empty()) posix_spawn_file_actions_addchdir_np(&actions, ToBytes(mFolder).c_str());
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
    posix_spawnattr_setpgroup(&attributes, 0);
    sigset_t defaults;
    sigemptyset(&defaults);
    for (const int signal : {SIGINT, SIGTERM, SIGPIPE}) sigaddset(&defaults, signal);
    posix_spawnattr_setsigdefault(&attributes, &defaults);

    char shell[] = "sh";
    char option[] = "-c";
    std::string text = command;
    char* arguments[] = {shell, option, text.data(), nullptr};
    pid_t process = -1;
    const int error = posix_spawn(&process, "/bin/sh", &actions, &attributes, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return error == 0 ? process : -1;
}

int ShellCommand_cls::Await(int process) const {
    int status = kNotStarted;
    long long askedAt = -1;
    bool forced = false;
    PollUntil(
        [&] {
            if (IsStopped() && askedAt < 0) {
                askedAt = Clock_cls::Current().Now();
                kill(-process, SIGTERM);
            } else if (askedAt >= 0 && !forced && Clock_cls::Current().Now() - askedAt > kGraceMs) {
                forced = true;
                kill(-process, SIGKILL);
            }
            return waitpid(process, &status, WNOHANG) != 0;
        },
        kCommandPeriodMs);
    // What the shell left in the background ends with it.
    if (askedAt >= 0) kill(-process, SIGKILL);
    return status;
}

wxString ShellCommand_cls::Describe(int status) {
    if (status == kNotStarted) return "it could not be started";
    if (WIFSIGNALED(status)) return wxString::Format("killed by signal %d", WTERMSIG(status));
    return wxString::Format("exit status %d", WEXITSTATUS(status));
}
