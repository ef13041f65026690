#include "data/clsPDataBlock.h"

#include <algorithm>
#include <climits>
#include <string>
#include <utility>

#include "data/clsBodyReader.h"
#include "data/clsDataLoader.h"
#include "data/clsLayoutHint.h"
#include "data/clsLinePieces.h"
#include "data/clsPDataSnap.h"
#include "data/clsThreadFileReader.h"
#include "interp/clsThreadInterpolator.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsTextCoding.h"

const DataLoader_cls* PDataBlock_cls::mspCDataLoaderLink = nullptr;
const PeriodicBoundary_cls* PDataBlock_cls::mspCPeriodicLink = nullptr;

namespace {

/// Text headers are read from the first bytes of the file; 30 lines of the longest kind fit.
constexpr size_t kTextHeaderByte = 65536;

SnapshotHeader_cls ParseHeader(const InputFile_cls& file, const DataLoader_cls& loader) {
    std::string bytes(loader.IsText() ? kTextHeaderByte : loader.GetHeaderByte(), '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    return loader.IsText() ? SnapshotHeader_cls::FromText(bytes, loader)
                           : SnapshotHeader_cls::FromBinary(bytes, loader);
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
    return LinePieces_cls::CountRecords(file, loader.GetHeaderLine());
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

PDataBlock_cls::Reading PDataBlock_cls::LoadData(const wxString& path) {
    wxString why;
    auto file = InputFile_cls::Open(path, &why);
    if (!file) {
        Problem(path, why);
        return Reading::CannotOpen;
    }
    if (GetCount() == -1) {
        ReadHeader(*file, path, mSnapshot->GetIndex());
        // Towards a file that does not say its time nothing moves, instead of back to time 0.
        mSnapshot->SetTime(mTimeKnown ? mTime : PDataSnap_cls::kNoTime);
    }
    const int wanted = GetCount();
    if (!IsAllocated() && !Allocate(wanted))
        Problem(path, wxString::Format("not enough memory for %d particles", wanted));
    const bool started =
        StartLoadingData(std::move(*file), mSnapshot->GetIndex(), mSnapshot->GetLoadedFlag());
    return started ? Reading::Started : Reading::Refused;
}

bool PDataBlock_cls::InterpolateData(const PDataBlock_cls& next) {
    ThreadInterpolator_cls::Task task;
    task.interpolated = mSnapshot->GetInterpolatedFlag();
    task.arrays = {.mCountA = GetCount(),
                   .mPositionA = GetPosition(),
                   .mRadiusA = GetRadius(),
                   .mValue1A = GetValue1(),
                   .mIDA = GetID(),
                   .mCountB = next.GetCount(),
                   .mPositionB = next.GetPosition(),
                   .mRadiusB = next.GetRadius(),
                   .mValue1B = next.GetValue1(),
                   .mIDB = next.GetID(),
                   .mVelocity = GetVelocity(),
                   .mRadiusWork = GetRadiusWork(),
                   .mValue1Work = GetValue1Work()};
    task.dt = static_cast<float>(next.mTime - mTime);
    task.interpolationType = mInterpolateType;
    task.variableNumber = mVariableNumber;
    task.outOfReach = &mOutOfReach;
    if (mspCPeriodicLink) task.periodic = mspCPeriodicLink->GetRule();
    return ThreadInterpolator_cls::StartInterpolating(task);
}

void PDataBlock_cls::Special_Copy(const PDataBlock_cls& other) {
    const auto n = static_cast<size_t>(std::max(GetCount(), 0));
    std::copy_n(other.GetPosition(), 3 * n, GetPosition());
    std::copy_n(other.GetVelocity(), 3 * n, GetVelocity());
    std::copy_n(other.GetRadius(), n, GetRadius());
    std::copy_n(other.GetValue1(), n, GetValue1());
    std::copy_n(other.GetRadiusWork(), n, GetRadiusWork());
    std::copy_n(other.GetValue1Work(), n, GetValue1Work());
    std::copy_n(other.GetType(), n, GetType());
    if (GetID() && other.GetID()) std::copy_n(other.GetID(), n, GetID());
}

void PDataBlock_cls::ReadHeader(const InputFile_cls& file, const wxString& path, int snapshotIndex) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    const SnapshotHeader_cls header = ParseHeader(file, loader);
    mTime = header.mTime.value_or(snapshotIndex);
    mTimeKnown = header.mTimeKnown;
    mInterpolateType = loader.mInterpolateType.mValue;
    mVariableNumber = loader.mVariableNumber.mValue;
    BoundCount(header, file, path);
    PrintDiagnostic("time=%f\n", mTime);
    PrintDiagnostic("number=%d\n", header.mNumber.value_or(GetCount()));
}

void PDataBlock_cls::BoundCount(const SnapshotHeader_cls& header, const InputFile_cls& file,
                                const wxString& path) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    mCount = 0;
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
    if (!header.mTimeKnown)
        Problem(path, "the header's time is no finite number: nothing moves to it or from it");
    if (header.mNumber && *header.mNumber < 0) {
        Problem(path, wxString::Format("the header says %d particles", *header.mNumber) +
                          GuessLayout(file, loader, *header.mNumber));
        return;
    }
    // A layout without a count: the file holds as many particles as are there.
    const int wanted = header.mNumber.value_or(INT_MAX);
    const auto there = static_cast<int>(std::min<long long>(wanted, ParticlesThere(file, loader, wanted)));
    mCount = there;
    if (header.mNumber) ReportMissing(wanted, there, file, path);
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
                      wanted, bytes, static_cast<unsigned long long>(file.GetSize()), there) +
                      GuessLayout(file, loader, wanted));
}

void PDataBlock_cls::CheckTextBody(const InputFile_cls& file, const wxString& path) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    const int wanted = GetCount();
    if (!loader.IsText() || wanted <= 0) return;
    mCount = std::min(wanted, LinePieces_cls::CountRecords(file, loader.GetHeaderLine()));
    ReportMissing(wanted, GetCount(), file, path);
}

void PDataBlock_cls::ReadBody(const InputFile_cls& file, const wxString& path) {
    const int wanted = GetCount();
    if (!IsAllocated() && !Allocate(wanted))
        Problem(path, wxString::Format("not enough memory for %d particles", wanted));
    mWanted = GetCount();
    mReport = BodyReader_cls(*mspCDataLoaderLink, GetTarget()).Read(file);
    mCount = mReport.mRecords;
    FinishLoadingData(path);
}

bool PDataBlock_cls::StartLoadingData(InputFile_cls file, int snapshotIndex, std::atomic<bool>* loaded) {
    if (GpCThreadReader.load(std::memory_order_acquire)) return false;
    mWanted = GetCount();
    auto reader = std::make_unique<ThreadFileReader_cls>();
    reader->SetParameters({.loaded = loaded, .count = &mCount, .report = &mReport}, *mspCDataLoaderLink,
                          std::move(file), GetTarget());
    return ThreadFileReader_cls::StartReading(std::move(reader), snapshotIndex);
}

void PDataBlock_cls::FinishLoadingData(const wxString& path) {
    const BodyReport_cls report = std::exchange(mReport, {});
    if (!report.mFailure.empty()) {
        Problem(path,
                wxString::Format("reading stopped after %d of %d particles: ", report.mRecords, mWanted) +
                    FromBytes(report.mFailure));
    } else if (report.mRecords < mWanted) {
        Problem(path, wxString::Format("the header says %d particles, the file holds %d", mWanted,
                                       report.mRecords));
    }
    if (report.mBadRecords > 0) {
        Problem(path,
                wxString::Format("%d of %d particles have a value that is missing, no number or not finite",
                                 report.mBadRecords, report.mRecords));
    }
}

bool PDataBlock_cls::Allocate(int count) {
    const int before = std::exchange(mAllocated, -1);
    FreeArrays();
    PrintDiagnostic("Allocate %d\n", before);
    const std::string failure = WhyItFailed([this, count] { AllocateArrays(count); });
    if (!failure.empty()) FreeArrays();
    mAllocated = failure.empty() ? count : 0;
    mCount = mAllocated;
    return failure.empty();
}

void PDataBlock_cls::AllocateArrays(int count) {
    const DataLoader_cls& loader = *mspCDataLoaderLink;
    using Content = ParticleBuffer_cls::Content;
    const auto n = static_cast<size_t>(count);
    // What the grammar does not fill is 0.
    const auto filledBy = [&loader](int code) {
        return loader.IsItemExistBody(code) ? Content::Any : Content::Zero;
    };
    mPosition = ParticleBuffer_cls(n * 3 * sizeof(float), filledBy(GrammerBase_cls::kXYZ));
    mVelocity = ParticleBuffer_cls(n * 3 * sizeof(float), filledBy(GrammerBase_cls::kVelocity));
    mRadius = ParticleBuffer_cls(n * sizeof(float), filledBy(GrammerBase_cls::kRadius));
    mValue1 = ParticleBuffer_cls(n * sizeof(float), filledBy(GrammerBase_cls::kValue1));
    mType = ParticleBuffer_cls(n, filledBy(GrammerBase_cls::kType));
    if (mHasID) mID = ParticleBuffer_cls(n * sizeof(int32_t), filledBy(GrammerBase_cls::kID));
    mRadiusWork = ParticleBuffer_cls(n * sizeof(float), Content::Zero);
    mValue1Work = ParticleBuffer_cls(n * sizeof(float), Content::Zero);
    mHasAcceleration = mInterpolateType == DataLoader_cls::kHermite;
    if (!mHasAcceleration) return;
    // Nothing reads them yet: untouched, they take no memory.
    mAcceleration = ParticleBuffer_cls(n * 3 * sizeof(float), Content::Zero);
    mJerk = ParticleBuffer_cls(n * 3 * sizeof(float), Content::Zero);
}

void PDataBlock_cls::FreeArrays() {
    for (ParticleBuffer_cls* array : {&mPosition, &mVelocity, &mAcceleration, &mJerk, &mRadius, &mRadiusWork,
                                      &mValue1, &mValue1Work, &mType, &mID})
        *array = ParticleBuffer_cls();
    if (std::exchange(mHasAcceleration, false)) PrintDiagnostic("ReleaseAJ\n");
}

void PDataBlock_cls::ReleaseData() {
    // Closing data comes here for every snapshot there could be.
    if (IsAllocated()) FreeArrays();
    mAllocated = -1;
    mCount = -1;
}

int PDataBlock_cls::GetUsedMemoryKB() const {
    const long long byteOfParticle = mInterpolateType == DataLoader_cls::kHermite ? 56 : 32;
    return static_cast<int>(std::max(GetCount(), 0) * byteOfParticle / 1024);
}

ParticleTarget_cls PDataBlock_cls::GetTarget() const {
    return {.mCount = GetCount(),
            .mPosition = GetPosition(),
            .mVelocity = GetVelocity(),
            .mRadius = GetRadius(),
            .mValue1 = GetValue1(),
            .mType = GetType(),
            .mID = GetID()};
}

void PDataBlock_cls::Problem(const wxString& path, const wxString& text) {
    mProblems.push_back(path + ": " + text);
}

std::vector<wxString> PDataBlock_cls::TakeProblems() {
    return std::exchange(mProblems, {});
}
