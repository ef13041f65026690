#pragma once

#include <atomic>
#include <initializer_list>

#include "seam/clsJoinedThread.h"

/// One of the workers that share a stage of the depth sort: keys, quarters or mergers.
/// Made by ZSort_cls for one stage; RunAll() returns when all of them are done.
/// Threads: each writes a range of entries that is its own.
/// Failure: a thread that cannot be created ends the program with a message.
class SortThread_cls : public JoinedThread_cls {
  public:
    ExitCode Entry() final;

    /// Runs these workers at once; the caller's thread is the last of them.
    static void RunAll(std::initializer_list<SortThread_cls*> workers);

  private:
    virtual void Work() = 0;

    std::atomic<bool> mDone{false};
};
