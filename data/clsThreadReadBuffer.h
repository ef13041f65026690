#pragma once

#include <vector>

#include "data/clsBinaryBody.h"
#include "seam/clsJoinedThread.h"

/// Second thread of the reading of a binary body: has the next piece under way while the reader cuts the one
/// before, and cuts it itself, so that no thread waits for the other between pieces.
/// Made, run and joined by the reader. Failure: told in the report.
class ThreadReadBuffer_cls : public JoinedThread_cls {
  public:
    explicit ThreadReadBuffer_cls(BinaryBody_cls& body) : mBody(body), mBuffer(body.GetPieceByte()) {}
    ~ThreadReadBuffer_cls() override { Join(); }

    /// After the thread was joined.
    const BodyReport_cls& GetReport() const { return mReport; }

  protected:
    ExitCode Entry() override {
        const std::string failure = WhyItFailed([this] { mReport = mBody.ReadPieces(mBuffer); });
        if (!failure.empty()) mReport.mFailure = failure;
        return nullptr;
    }

  private:
    BinaryBody_cls& mBody;
    std::vector<char> mBuffer;
    BodyReport_cls mReport;
};
