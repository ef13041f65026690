#pragma once

#include <memory>

#include "data/clsFileSequence.h"
#include "data/clsPDataBlock.h"

/// The time series of snapshots named by one numbered file name.
/// Owned by the application core. Threads: GUI thread.
class PDataSequence_cls {
  public:
    /// Longer series are cut to kCutLength: the two numbers differ, and users' projects rely on both.
    static constexpr int kMaxLength = 10000;
    static constexpr int kCutLength = 8000;

    explicit PDataSequence_cls(unsigned int number);

    /// Names the series and counts its files; a series that is too long is cut, with a warning.
    void OpenDataFile(const wxString& path);
    int GetSeqLength() const { return mLength; }
    wxString GetFilename(int index) const { return mFiles.GetModifiedStr(index); }

    enum class Depth { HeaderOnly, Whole };
    /// Reads one snapshot, or only its time and particle count compared with the file. Null, with the reason
    /// in words, when its file cannot be opened; faults in the file are kept in the block.
    std::unique_ptr<PDataBlock_cls> Load(int index, Depth depth, wxString* why) const;

    /// "DataSequence", the number and "=", then the file's name on a line of its own.
    wxString Serialize() const;
    /// True when the line is this sequence's key; the name then follows on the next line.
    bool IsKeyLine(const wxString& line) const { return line == mKey; }

  private:
    FileSequence_cls mFiles;
    wxString mKey;
    int mLength = 0;
};
