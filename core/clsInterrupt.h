#pragma once

/// Ctrl+C, the signal that asks to end, and a terminal that goes, as a question that long jobs ask between
/// two files. Threads: any.
class Interrupt_cls {
  public:
    /// From now on the signals only raise the flag. Before the first long job.
    static void Install();
    static bool IsRaised();
};
