#pragma once

#include <wx/string.h>

#include <atomic>
#include <cstdint>
#include <vector>

#include "data/clsBodyReport.h"
#include "data/clsParticleBuffer.h"
#include "data/clsParticleTarget.h"
#include "data/clsSnapshotHeader.h"
#include "seam/clsInputFile.h"

class DataLoader_cls;
class PDataSnap_cls;
class PeriodicBoundary_cls;

/// The particles of one snapshot, one element per particle in every array.
/// Owned by whoever shows or exports the snapshot.
/// Threads: GUI thread; while a read is under way the reader alone touches the arrays.
/// Units: the file's own, after the loader's transforms.
/// Failure: a file that does not hold what its header says leaves the particles that are there; what was
/// wrong is kept as one line for each kind of fault, with the file's name and the figures.
class PDataBlock_cls {
  public:
    /// The loader settings, set once by the application core.
    static const DataLoader_cls* mspCDataLoaderLink;
    /// The periodic box, set once by the application core; null: none.
    static const PeriodicBoundary_cls* mspCPeriodicLink;

    /// A block without a snapshot is read by hand and takes no part in the cache.
    explicit PDataBlock_cls(PDataSnap_cls* snapshot = nullptr) : mSnapshot(snapshot) {}

    // For the snapshot that owns the block
    // ------------------------------------------------------------------------

    enum class Reading { Started, Refused, CannotOpen };
    /// Opens the file, reads its header if that was not done, and has a thread read the body. Refused while
    /// another reader is registered: one runs at a time.
    Reading LoadData(const wxString& path);
    /// Has a thread compute the rates towards the next block. False, and nothing started, while another does.
    bool InterpolateData(const PDataBlock_cls& next);
    /// Takes the particles of a block with the same number of them.
    void Special_Copy(const PDataBlock_cls& other);

    // Reading
    // ------------------------------------------------------------------------

    /// Read the header and bound the particle count by what the file can hold. A file that cannot be opened
    /// ends the program: callers open the file first and use ReadHeader().
    void LoadHeaderBinary(const wxString& path);
    void LoadHeaderAscii(const wxString& path);
    void ReadHeader(const InputFile_cls& file, const wxString& path, int snapshotIndex);
    /// Reads the body of a file whose header has been read.
    void ReadBody(const InputFile_cls& file, const wxString& path);
    /// Has a thread read the body into the allocated arrays and set the flag when the particles are there.
    /// False, and nothing started, while another reader runs.
    bool StartLoadingData(InputFile_cls file, int snapshotIndex, std::atomic<bool>* loaded);
    /// Turns what the reader reported into problems, once the flag is set.
    void FinishLoadingData(const wxString& path);
    /// Compares the header's count of a text file with its lines, without reading numbers.
    void CheckTextBody(const InputFile_cls& file, const wxString& path);

    /// Allocates all arrays, after freeing those that are there. False when memory is lacking: the block then
    /// has no particles.
    [[nodiscard]] bool Allocate(int count);
    /// Frees the arrays; the count is unknown again.
    void ReleaseData();
    bool IsAllocated() const { return mAllocated >= 0; }
    /// A fixed estimate of 56 bytes a particle with Hermite interpolation and 32 otherwise: memory limits in
    /// users' preferences are made for it.
    int GetUsedMemoryKB() const;

    /// -1 until a header was read; less than the header said when a reader found less.
    int GetCount() const { return mCount.load(std::memory_order_acquire); }
    double GetTime() const { return mTime; }
    /// Whether the block has IDs; without, their array is not allocated.
    void SetIDFlag(bool hasID) { mHasID = hasID; }
    /// The loader's setting as it was when the header was read.
    unsigned int GetVariableNumber() const { return mVariableNumber; }

    float* GetPosition() const { return mPosition.As<float>(); }
    float* GetVelocity() const { return mVelocity.As<float>(); }
    float* GetRadius() const { return mRadius.As<float>(); }
    float* GetValue1() const { return mValue1.As<float>(); }
    uint8_t* GetType() const { return mType.As<uint8_t>(); }
    int32_t* GetID() const { return mID.As<int32_t>(); }
    /// Rates of radius and value1 for the interpolator; zeros until it writes them.
    float* GetRadiusWork() const { return mRadiusWork.As<float>(); }
    float* GetValue1Work() const { return mValue1Work.As<float>(); }

    /// What was wrong with the file, and forgets it.
    std::vector<wxString> TakeProblems();
    /// Particles that the next block has too far away to be found; as of the last rates.
    int GetOutOfReach() const { return mOutOfReach.load(std::memory_order_relaxed); }

  private:
    void AllocateArrays(int count);
    void FreeArrays();
    ParticleTarget_cls GetTarget() const;
    void BoundCount(const SnapshotHeader_cls& header, const InputFile_cls& file, const wxString& path);
    void ReportMissing(int wanted, int there, const InputFile_cls& file, const wxString& path);
    void LoadHeader(const wxString& path, const char* stopWords);
    void Problem(const wxString& path, const wxString& text);

    PDataSnap_cls* mSnapshot;
    ParticleBuffer_cls mPosition;
    ParticleBuffer_cls mVelocity;
    ParticleBuffer_cls mAcceleration;
    ParticleBuffer_cls mJerk;
    ParticleBuffer_cls mRadius;
    ParticleBuffer_cls mRadiusWork;
    ParticleBuffer_cls mValue1;
    ParticleBuffer_cls mValue1Work;
    ParticleBuffer_cls mType;
    ParticleBuffer_cls mID;
    std::atomic<int> mCount{-1};
    int mAllocated = -1;  ///< particles that the arrays have room for; -1 without arrays
    int mWanted = 0;      ///< particles that the reader was asked for
    bool mHasID = true;
    bool mHasAcceleration = false;
    unsigned int mInterpolateType = 0;
    unsigned int mVariableNumber = 0;
    double mTime = -9999.0;
    bool mTimeKnown = true;  ///< else mTime is 0, and means nothing
    BodyReport_cls mReport;
    std::vector<wxString> mProblems;
    std::atomic<int> mOutOfReach{0};
};
