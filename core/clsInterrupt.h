#pragma once

/// Ctrl+C, and the signal that asks to end, as a question that long jobs ask between two files.
/// Threads: any.
class Interrupt_cls {
  public:
    /// From now on the signals only raise the flag.
    static void Install();
    static bool IsRaised();
};
