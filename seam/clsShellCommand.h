#pragma once

#include <wx/string.h>

#include <atomic>
#include <string>
#include <vector>

/// A command run by the system's shell like system() does it, but in a folder of its own, with its output in
/// a file, on chosen processors, and in a group of processes of its own that can be ended whole.
/// Threads: Run() blocks the thread that calls it; Stop() may be called from any.
class ShellCommand_cls {
  public:
    /// Status when no process could be started, as system() has it.
    static constexpr int kNotStarted = -1;

    /// A word that the shell takes as it stands: one of harmless characters is left alone, any other is put
    /// into quotes.
    static wxString Quote(const wxString& word);
    /// True when Quote() leaves the word alone.
    static bool IsHarmless(const wxString& word);
    /// The processors that this process may use, by their numbers.
    static std::vector<int> GetProcessors();

    /// Current folder of the command; the program's own when empty.
    void SetFolder(const wxString& folder) { mFolder = folder; }
    /// Takes what the command prints, both streams; the program's own streams when empty.
    void SetLog(const wxString& path) { mLog = path; }
    /// Runs the command on these processors only; all when empty.
    void SetProcessors(std::vector<int> processors) { mProcessors = std::move(processors); }

    /// Returns when the command has ended, with the status of waitpid(), or kNotStarted.
    int Run(const wxString& command);
    /// Ends the command and everything that it started, also one that is run later. Run() then returns soon.
    void Stop() { mStop.store(true, std::memory_order_release); }
    bool IsStopped() const { return mStop.load(std::memory_order_acquire); }

    /// What a status means, in words: "exit status 1", "killed by signal 9".
    static wxString Describe(int status);

  private:
    int Start(const std::string& command) const;
    int Await(int process) const;

    wxString mFolder;
    wxString mLog;
    std::vector<int> mProcessors;
    std::atomic<bool> mStop{false};
};
