#pragma once

#include <memory>

#include "data/clsFileSequence.h"
#include "data/clsPDataBlock.h"

/// The time series of snapshots named by one numbered file name.
/// Owned by the application core. Threads: GUI thread.
class PDataSequence_cls {
  public:
    /// More files than this are not opened.
    static constexpr int kMaxLength = 10000;

    explicit PDataSequence_cls(unsigned int number);

    /// Names the series and counts its files.
    void OpenDataFile(const wxString& path);
    int GetSeqLength() const { return mLength; }
    wxString GetFilename(int index) const { return mFiles.GetModifiedStr(index); }

    /// Reads one snapshot whole. Null when its file cannot be opened; every fault is told to the user.
    std::unique_ptr<PDataBlock_cls> LoadSnapshot(int index) const;
    /// Reads time and particle count of one snapshot and compares the count with the file.
    std::unique_ptr<PDataBlock_cls> LoadSnapshotInfo(int index) const;

    /// "DataSequence", the number and "=", then the file's name on a line of its own.
    wxString Serialize() const;
    /// True when the line is this sequence's key; the name then follows on the next line.
    bool IsKeyLine(const wxString& line) const { return line == mKey; }

  private:
    enum class Depth { HeaderOnly, Whole };
    std::unique_ptr<PDataBlock_cls> Load(int index, Depth depth) const;

    FileSequence_cls mFiles;
    wxString mKey;
    int mLength = 0;
};
