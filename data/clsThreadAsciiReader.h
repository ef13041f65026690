#pragma once

#include <atomic>
#include <string>

#include "data/clsTextBody.h"
#include "seam/clsJoinedThread.h"

/// Threads that parse a text body, from the preferences ("Thread (I/O)"); 0 is taken as 1.
extern std::atomic<unsigned int> GThreadNumberReadAscii;

/// One of the threads that parse a text body. Made, run and joined by the reader.
class ThreadAsciiReader_cls : public JoinedThread_cls {
  public:
    explicit ThreadAsciiReader_cls(TextBody_cls& body) : mBody(body) {}
    ~ThreadAsciiReader_cls() override { Join(); }

    /// Why it broke off, in words, after the thread was joined.
    const std::string& GetFailure() const { return mFailure; }

  protected:
    ExitCode Entry() override {
        mFailure = WhyItFailed([this] { mBody.ParsePieces(); });
        return nullptr;
    }

  private:
    TextBody_cls& mBody;
    std::string mFailure;
};
