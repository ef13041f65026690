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

/// Particles that fit into the body of the file: exact for binary files, an upper bound for text.
long long RoomForParticles(const InputFile_cls& file, const DataLoader_cls& loader) {
    const auto size = static_cast<long long>(file.GetSize());
    // The shortest column of a text is a digit and a separator.
    const long long record = loader.IsText() ? 2LL * loader.GetRecordColumn() : loader.GetRecordByte();
    const long long header = loader.IsText() ? 0 : loader.GetHeaderByte();
    if (record == 0 || size <= header) return 0;
    return (size - header + (loader.IsText() ? 1 : 0)) / record;
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
    const long long room = RoomForParticles(file, loader);
    if (!header.mNumber) {
        // A layout without a count: the file holds as many particles as fit into it.
        const long long there = loader.IsText() ? AsciiReader_cls::CountRecords(AsciiReader_cls::SkipLines(
                                                      file.ReadRest(0), loader.GetHeaderLine()))
                                                : room;
        mTarget.mCount = static_cast<int>(std::min<long long>(there, INT_MAX));
        return;
    }
    if (*header.mNumber < 0) {
        Problem(path, wxString::Format("the header says %d particles", *header.mNumber));
        return;
    }
    mTarget.mCount = static_cast<int>(std::min<long long>(*header.mNumber, room));
    if (mTarget.mCount == *header.mNumber) return;
    if (loader.IsText()) {
        Problem(path,
                wxString::Format("the header says %d particles, the file of %llu bytes has no room for them",
                                 *header.mNumber, static_cast<unsigned long long>(file.GetSize())));
    } else {
        const unsigned long long wanted =
            loader.GetHeaderByte() +
            static_cast<unsigned long long>(*header.mNumber) * loader.GetRecordByte();
        Problem(path,
                wxString::Format("the header says %d particles (%llu bytes), the file has %llu bytes: %d "
                                 "particles are there",
                                 *header.mNumber, wanted, static_cast<unsigned long long>(file.GetSize()),
                                 mTarget.mCount));
    }
}

void PDataBlock_cls::CheckTextBody(const InputFile_cls& file, const wxString& path) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    if (!loader.IsText() || mTarget.mCount <= 0) return;
    const std::string text = file.ReadRest(0);
    const int records =
        AsciiReader_cls::CountRecords(AsciiReader_cls::SkipLines(text, loader.GetHeaderLine()));
    if (records >= mTarget.mCount) return;
    Problem(path, wxString::Format("the header says %d particles, the file has %d lines of them",
                                   mTarget.mCount, records));
    mTarget.mCount = records;
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
