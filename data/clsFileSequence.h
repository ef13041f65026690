#pragma once

#include <wx/string.h>

/// A numbered series of files named by one of its members ("snap0120.bin") or by a pattern ("run%05d.dat").
/// Owned by whoever names files: data sequences, picture and export writers. Threads: GUI thread.
/// Failure: a first member that cannot be opened is told to the user and gives count 0.
class FileSequence_cls {
  public:
    /// In longer names, without their extension, no number is looked for.
    static constexpr size_t kLongestName = 1000;

    enum class Side { Plain = 0, Left = 1, Right = 2 };

    FileSequence_cls() = default;
    explicit FileSequence_cls(const wxString& path);

    /// Takes a new name. An empty one sets only the path.
    void Set(const wxString& path);
    /// Counts the consecutive files on disk from the first member on. Members are probed in steps of 100, 10
    /// and 1, so that long series open quickly; a gap between probed members is not noticed.
    void CalcMaxOffset();
    /// Name of member start + offset; of its left or right picture with "L" or "R" before the number.
    wxString GetModifiedStr(int offset, Side side = Side::Plain) const;
    /// The path, and the first and last number of a numbered series.
    wxString GetInfoStr() const;
    /// Gives a name without number a four-digit one. The tag goes to the end of the name without its
    /// extension
    /// ("out.png" becomes "out%04d"): a name without number has no suffix, and projects rely on it.
    void AppendDefaultSequenceTag();

    const wxString& GetPath() const { return mPath; }
    const wxString& GetPrefix() const { return mPrefix; }
    const wxString& GetFormat() const { return mFormat; }
    int GetStart() const { return mStart; }
    /// Number of files, -1 until counted.
    int GetCount() const { return mCount; }
    void SetCount(int count) { mCount = count; }
    bool IsNumbered() const { return mDigits != -1; }

  private:
    void InitFormat();
    bool IsMemberThere(int offset) const;

    wxString mPath;
    wxString mPrefix;
    wxString mFormat;
    wxString mSuffix;
    int mStart = 0;
    int mDigits = -1;  ///< width of the number; -1 for a name without one
    int mCount = -1;
};
