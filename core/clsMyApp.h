#pragma once

#include <memory>

#include "core/clsCommandLine.h"

class wxInitializer;

/// The process: languages, image formats, and the front end that drives the application core: the window
/// (WindowSession_cls), or Batch_cls, which needs no display. One object in main(). Threads: GUI thread.
class MyApp {
  public:
    /// Texts may follow the user's language, numbers in files never do.
    MyApp();
    ~MyApp();
    MyApp(const MyApp&) = delete;
    MyApp& operator=(const MyApp&) = delete;

    /// Does what the command line asks for; returns the exit status.
    int Run(int argc, char** argv);

  private:
    int RunHeadless(const CommandLine_cls& line);
    int RunWindow(const CommandLine_cls& line);

    std::unique_ptr<wxInitializer> mToolkit;
};
