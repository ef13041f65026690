#pragma once

/// Diagnostic lines on standard output: fixed words at fixed points of the work, made for logs.
/// Threads: any. A line is written in one piece.

/// printf to standard output, unless diagnostics are switched off.
[[gnu::format(printf, 1, 2)]] void PrintDiagnostic(const char* format, ...);

/// Off for the command line's --quiet. On at start.
void SetDiagnosticsOn(bool on);

/// Prints the words and ends the program with exit status 0: the program cannot go on. What still has to be
/// saved is saved by exit handlers.
[[noreturn]] void HardStop(const char* words);
