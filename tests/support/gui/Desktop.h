#pragma once

#include <sys/types.h>

#include <string>

/// A screen of its own for one test program: a virtual X server with a window manager, gone with the object.
/// Sets DISPLAY, and keeps the toolkit away from the user's files and services. Make it before the toolkit.
class Desktop_cls {
  public:
    static constexpr int kWidth = 1400;
    static constexpr int kHeight = 1000;

    Desktop_cls();
    ~Desktop_cls();
    Desktop_cls(const Desktop_cls&) = delete;
    Desktop_cls& operator=(const Desktop_cls&) = delete;

    /// Empty, or what could not be started.
    const std::string& GetError() const { return mError; }

  private:
    void StartServer();
    void StartManager();

    std::string mHome;
    std::string mError;
    pid_t mServer = -1;
    pid_t mManager = -1;
};
