#pragma once

#include <wx/string.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "data/clsParticleTarget.h"
#include "data/clsSnapshotHeader.h"
#include "seam/clsInputFile.h"

class DataLoader_cls;

/// The particles of one snapshot, one element per particle in every array.
/// Owned by whoever shows or exports the snapshot. Threads: one at a time.
/// Units: the file's own.
/// Failure: a file that does not hold what its header says leaves the particles that are there; what was
/// wrong is kept as one line for each kind of fault, with the file's name and the figures.
class PDataBlock_cls {
  public:
    /// The loader settings, set once by the application core.
    static const DataLoader_cls* mspCDataLoaderLink;

    /// Read the header and bound the particle count by what the file can hold. A file that cannot be opened
    /// ends the program: callers open the file first and use ReadHeader().
    void LoadHeaderBinary(const wxString& path);
    void LoadHeaderAscii(const wxString& path);
    void ReadHeader(const InputFile_cls& file, const wxString& path, int snapshotIndex);
    /// Reads the body of a file whose header has been read.
    void ReadBody(const InputFile_cls& file, const wxString& path);
    /// Compares the header's count of a text file with its lines, without reading numbers.
    void CheckTextBody(const InputFile_cls& file, const wxString& path);
    void ReleaseData();

    /// -1 until a header was read.
    int GetCount() const { return mTarget.mCount; }
    double GetTime() const { return mTime; }
    const float* GetPosition() const { return mPosition.get(); }
    const uint8_t* GetType() const { return mType.get(); }
    const int32_t* GetID() const { return mID.get(); }

    /// What was wrong with the file, and forgets it.
    std::vector<wxString> TakeProblems();

  private:
    void Allocate(int count);
    void BoundCount(const SnapshotHeader_cls& header, const InputFile_cls& file, const wxString& path);
    void ReportMissing(int wanted, int there, const InputFile_cls& file, const wxString& path);
    void LoadHeader(const wxString& path, const char* stopWords);
    void Problem(const wxString& path, const wxString& text);

    std::unique_ptr<float[]> mPosition;
    std::unique_ptr<float[]> mVelocity;
    std::unique_ptr<float[]> mRadius;
    std::unique_ptr<float[]> mValue1;
    std::unique_ptr<uint8_t[]> mType;
    std::unique_ptr<int32_t[]> mID;
    ParticleTarget_cls mTarget{.mCount = -1};
    double mTime = -9999.0;
    std::vector<wxString> mProblems;
};
