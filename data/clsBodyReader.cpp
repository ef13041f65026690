#include "data/clsBodyReader.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "data/clsBinaryBody.h"
#include "data/clsTextBody.h"
#include "data/clsThreadAsciiReader.h"
#include "data/clsThreadReadBuffer.h"

namespace {

/// A thread costs more than it saves on less than this.
constexpr uint64_t kByteWorthAThread = 1048576;
constexpr unsigned int kMostThreads = 64;

}  // namespace

BodyReader_cls::BodyReader_cls(const DataLoader_cls& loader, const ParticleTarget_cls& target)
    : mBinary(loader),
      mAscii(loader),
      mAdjuster(loader),
      mTarget(target),
      mHeaderByte(loader.GetHeaderByte()),
      mHeaderLine(loader.GetHeaderLine()),
      mIsText(loader.IsText()),
      mIsDefaultRecord(loader.IsDefaultRecord()) {}

BodyReport_cls BodyReader_cls::Read(const InputFile_cls& file) const {
    BodyReport_cls report;
    const std::string failure = WhyItFailed([this, &file, &report] {
        report = mIsText ? ReadAsciiBody(file) : ReadBinaryBody(file);
        if (mAdjuster.IsSortedById()) ParticleAdjuster_cls::SortById(mTarget, report.mRecords);
    });
    return failure.empty() ? report : BodyReport_cls{.mFailure = failure};
}

int BodyReader_cls::GetBinaryProgressStep() const {
    const int count = mTarget.mCount;
    if (mIsDefaultRecord) return count < 2000001 ? 100000 : 200000;
    if (count > 50000000) return count / 50;
    if (count > 20000000) return count / 20;
    return std::min(count, 1000000);
}

BodyReport_cls BodyReader_cls::ReadBinaryBody(const InputFile_cls& file) const {
    if (mBinary.GetRecordByte() == 0) return {};
    BodyProgress_cls progress(mTarget.mCount, GetBinaryProgressStep());
    BinaryBody_cls body(file, mHeaderByte, mBinary, mAdjuster, mTarget, progress);
    std::vector<char> buffer(body.GetPieceByte());
    if (body.GetPieceCount() < 2) return body.ReadPieces(buffer);

    ThreadReadBuffer_cls ahead(body);
    const bool isHelped = ahead.Start();
    const BodyReport_cls report = body.ReadPieces(buffer);
    ahead.Join();
    return isHelped ? BinaryBody_cls::Join(report, ahead.GetReport()) : report;
}

BodyReport_cls BodyReader_cls::ReadAsciiBody(const InputFile_cls& file) const {
    const auto asked = static_cast<int>(
        std::clamp(GThreadNumberReadAscii.load(std::memory_order_relaxed), 1U, kMostThreads));
    const int useful = static_cast<int>(std::min<uint64_t>(file.GetSize() / kByteWorthAThread,
                                                           static_cast<uint64_t>(wxThread::GetCPUCount())));
    const int step = mTarget.mCount > 2000000 ? 100000 : 50000;
    BodyProgress_cls progress(mTarget.mCount, step / asked * asked);
    LinePieces_cls lines(file, mHeaderLine);
    TextBody_cls body(lines, mAscii, mAdjuster, mTarget, progress);

    std::vector<std::unique_ptr<ThreadAsciiReader_cls>> workers;
    for (int i = 0; i < std::min(asked, useful); ++i) {
        workers.push_back(std::make_unique<ThreadAsciiReader_cls>(body));
        if (!workers.back()->Start()) break;
    }
    BodyReport_cls report;
    report.mRecords = body.ReadPieces();
    report.mFailure = lines.GetFailure();
    for (const auto& worker : workers) {
        worker->Join();
        if (!worker->GetFailure().empty()) throw std::runtime_error(worker->GetFailure());
    }
    report.mBadRecords = body.GetBadRecords();
    return report;
}
