#pragma once

#include <functional>

/// Diagnostic lines on standard output: fixed words at fixed points of the work, made for logs.
/// Threads: any. A line is written in one piece.

/// printf to standard output, unless diagnostics are switched off.
[[gnu::format(printf, 1, 2)]] void PrintDiagnostic(const char* format, ...);

/// Off for the command line's --quiet. On at start.
void SetDiagnosticsOn(bool on);

/// Prints the words and ends the program with exit status 0: the program cannot go on. What still has to be
/// saved is saved first, see SetLastWork().
[[noreturn]] void HardStop(const char* words);

/// What is done, once, before the program is ended by force; empty for nothing. Set by the front end, which
/// sees to it that it may run on the thread that ends the program.
void SetLastWork(std::function<void()> work);
void DoLastWork();
