#include "data/clsPDataBlock.h"

#include <algorithm>
#include <climits>
#include <string>
#include <utility>

#include "data/clsDataLoader.h"
#include "data/clsThreadFileReader.h"
#include "seam/clsDiagnostics.h"

const DataLoader_cls* PDataBlock_cls::mspCDataLoaderLink = nullptr;

namespace {

/// Text headers are read from the first bytes of the file; 30 lines of the longest kind fit.
constexpr size_t kTextHeaderByte = 64 * 1024;

SnapshotHeader_cls ParseHeader(const InputFile_cls& file, const DataLoader_cls& loader) {
    std::string bytes(loader.IsText() ? kTextHeaderByte : loader.GetHeaderByte(), '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    return loader.IsText() ? SnapshotHeader_cls::FromText(bytes, loader)
                           : SnapshotHeader_cls::FromBinary(bytes, loader);
}

int CountTextRecords(const InputFile_cls& file, const DataLoader_cls& loader) {
    const std::string text = file.ReadRest(0);
    return AsciiReader_cls::CountRecords(AsciiReader_cls::SkipLines(text, loader.GetHeaderLine()));
}

/// Particles in the body of the file. Binary: what its size allows. Text: the shortest column is a digit and
/// a separator; lines are counted only when the number asked for does not fit that way.
long long ParticlesThere(const InputFile_cls& file, const DataLoader_cls& loader, long long wanted) {
    const auto size = static_cast<long long>(file.GetSize());
    if (!loader.IsText()) {
        const long long record = loader.GetRecordByte();
        return record == 0 ? 0 : std::max(0LL, size - loader.GetHeaderByte()) / record;
    }
    if (wanted <= size / (2LL * std::max(1U, loader.GetRecordColumn()))) return wanted;
    return CountTextRecords(file, loader);
}

}  // namespace

void PDataBlock_cls::LoadHeader(const wxString& path, const char* stopWords) {
    const auto file = InputFile_cls::Open(path);
    if (!file) HardStop(stopWords);
    ReadHeader(*file, path, 0);
}

void PDataBlock_cls::LoadHeaderBinary(const wxString& path) {
    LoadHeader(path, "Read Header Fails!!");
}
void PDataBlock_cls::LoadHeaderAscii(const wxString& path) {
    LoadHeader(path, "Load Header Ascii Error");
}

void PDataBlock_cls::ReadHeader(const InputFile_cls& file, const wxString& path, int snapshotIndex) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    const SnapshotHeader_cls header = ParseHeader(file, loader);
    mTime = header.mTime.value_or(snapshotIndex);
    BoundCount(header, file, path);
    PrintDiagnostic("time=%f\n", mTime);
    PrintDiagnostic("number=%d\n", mTarget.mCount);
}

void PDataBlock_cls::BoundCount(const SnapshotHeader_cls& header, const InputFile_cls& file,
                                const wxString& path) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    mTarget.mCount = 0;
    if (!header.mComplete) {
        if (loader.IsText()) {
            Problem(path, wxString::Format("the %u header lines of the grammar do not hold time and number",
                                           loader.GetHeaderLine()));
        } else {
            Problem(path, wxString::Format("the file ends inside its header (%u of %u bytes)",
                                           header.mBytesThere, header.mBytesWanted));
        }
        return;
    }
    if (header.mNumber && *header.mNumber < 0) {
        Problem(path, wxString::Format("the header says %d particles", *header.mNumber));
        return;
    }
    // A layout without a count: the file holds as many particles as are there.
    const int wanted = header.mNumber.value_or(INT_MAX);
    mTarget.mCount = static_cast<int>(std::min<long long>(wanted, ParticlesThere(file, loader, wanted)));
    if (header.mNumber) ReportMissing(wanted, mTarget.mCount, file, path);
}

void PDataBlock_cls::ReportMissing(int wanted, int there, const InputFile_cls& file, const wxString& path) {
    if (there >= wanted) return;
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    if (loader.IsText()) {
        Problem(path, wxString::Format("the header says %d particles, the file has %d lines of them", wanted,
                                       there));
        return;
    }
    const unsigned long long bytes =
        loader.GetHeaderByte() + static_cast<unsigned long long>(wanted) * loader.GetRecordByte();
    Problem(path, wxString::Format(
                      "the header says %d particles (%llu bytes), the file has %llu bytes: %d particles "
                      "are there",
                      wanted, bytes, static_cast<unsigned long long>(file.GetSize()), there));
}

void PDataBlock_cls::CheckTextBody(const InputFile_cls& file, const wxString& path) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    if (!loader.IsText() || mTarget.mCount <= 0) return;
    const int there = std::min(mTarget.mCount, CountTextRecords(file, loader));
    ReportMissing(mTarget.mCount, there, file, path);
    mTarget.mCount = there;
}

void PDataBlock_cls::ReadBody(const InputFile_cls& file, const wxString& path) {
    const int wanted = mTarget.mCount;
    Allocate(wanted);
    const BodyReport_cls report = ThreadFileReader_cls(*mspCDataLoaderLink, file, mTarget).Read();
    mTarget.mCount = report.mRecords;
    if (report.mRecords < wanted) {
        Problem(path,
                wxString::Format("the header says %d particles, the file holds %d", wanted, report.mRecords));
    }
    if (report.mBadRecords > 0) {
        Problem(path,
                wxString::Format("%d of %d particles have a value that is missing, no number or not finite",
                                 report.mBadRecords, report.mRecords));
    }
}

void PDataBlock_cls::Allocate(int count) {
    PrintDiagnostic("Allocate %d\n", mPosition ? mTarget.mCount : -1);
    const auto n = static_cast<size_t>(count);
    // Value-initialised: what the grammar does not fill is 0.
    mPosition = std::make_unique<float[]>(3 * n);
    mVelocity = std::make_unique<float[]>(3 * n);
    mRadius = std::make_unique<float[]>(n);
    mValue1 = std::make_unique<float[]>(n);
    mType = std::make_unique<uint8_t[]>(n);
    mID = std::make_unique<int32_t[]>(n);
    mTarget = {.mCount = count,
               .mPosition = mPosition.get(),
               .mVelocity = mVelocity.get(),
               .mRadius = mRadius.get(),
               .mValue1 = mValue1.get(),
               .mType = mType.get(),
               .mID = mID.get()};
}

void PDataBlock_cls::ReleaseData() {
    *this = PDataBlock_cls();
}

void PDataBlock_cls::Problem(const wxString& path, const wxString& text) {
    mProblems.push_back(path + ": " + text);
}

std::vector<wxString> PDataBlock_cls::TakeProblems() {
    return std::exchange(mProblems, {});
}
