#include "data/clsThreadFileReader.h"

#include <utility>

#include "data/clsBodyProgress.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsEventSink.h"
#include "seam/clsUserMessage.h"

std::atomic<ThreadFileReader_cls*> GpCThreadReader{nullptr};
std::atomic<bool> GbThreadReaderFinished{true};
std::atomic<int> GThreadReaderIndex{-1};

namespace {

/// The reader that was started last; it may have ended. GUI thread only.
std::unique_ptr<ThreadFileReader_cls> lastReader;

}  // namespace

void ThreadFileReader_cls::SetParameters(const Outcome& outcome, const DataLoader_cls& loader,
                                         InputFile_cls file, const ParticleTarget_cls& target) {
    mOutcome = outcome;
    mReader.emplace(loader, target);
    mFile.emplace(std::move(file));
}

void ThreadFileReader_cls::SetParameters(const Outcome& outcome, const DataLoader_cls& loader,
                                         const wxString& path, const ParticleTarget_cls& target) {
    auto file = InputFile_cls::Open(path);
    // Here and not in the thread: ending the program there would take the ground from under the GUI thread.
    if (!file) HardStop("Read Main Fails!!");
    SetParameters(outcome, loader, std::move(*file), target);
}

bool ThreadFileReader_cls::StartReading(std::unique_ptr<ThreadFileReader_cls> reader, int snapshotIndex) {
    if (GpCThreadReader.load(std::memory_order_acquire)) return false;
    // The one before may be finished and yet at its last acts; joined first, it can not undo what follows.
    Retire();
    GbThreadReaderFinished.store(false, std::memory_order_release);
    GThreadReaderIndex.store(snapshotIndex, std::memory_order_release);
    GpCThreadReader.store(reader.get(), std::memory_order_release);
    lastReader = std::move(reader);
    if (!lastReader->Start()) MsgBoxExit("Can't create thread", "Error!");
    return true;
}

void ThreadFileReader_cls::Retire() {
    lastReader.reset();
    GpCThreadReader.store(nullptr, std::memory_order_release);
}

wxThread::ExitCode ThreadFileReader_cls::Entry() {
    GThreadReaderPercentage.store(0, std::memory_order_relaxed);
    *mOutcome.report = mReader->Read(*mFile);
    mOutcome.count->store(mOutcome.report->mRecords, std::memory_order_relaxed);
    mFile.reset();

    mOutcome.loaded->store(true, std::memory_order_release);
    GbThreadReaderFinished.store(true, std::memory_order_release);
    GThreadReaderPercentage.store(100, std::memory_order_relaxed);
    EventSink_cls::PostToFrame(EventSink_cls::kRefreshStatus);
    EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
    // The last acts: waiting loops stop when the index changes. Whoever waited may have cleared the pointer.
    ThreadFileReader_cls* self = this;
    GpCThreadReader.compare_exchange_strong(self, nullptr, std::memory_order_acq_rel);
    GThreadReaderIndex.store(-1, std::memory_order_release);
    return nullptr;
}
