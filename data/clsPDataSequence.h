#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "CONFITEM/clsConfItem.h"
#include "data/clsFileSequence.h"
#include "data/clsPDataSnap.h"

class GLAttribute_cls;
struct SnapAttribute_cls;
class LineStream_cls;

/// A time series of snapshots named by one numbered file pattern, with the part of it that is in memory.
/// Snapshots are read on demand, one after another, interpolated towards the next when values between two
/// files are needed, and released when they fall out of the playing step or the memory limit asks for it.
/// Owned by PDataSeqCtrl_cls. Owns its snapshots, all from the start, and its four draw attributes.
/// Snapshot numbers at or above the length mean the last snapshot, those below 0 the first.
/// Threads: GUI thread. Units: memory in KB and MB by the fixed figures of PDataBlock_cls.
class PDataSequence_cls {
  public:
    static constexpr int kMaxLength = 10000;
    static constexpr int kAttributes = 4;
    /// Clear(): every snapshot.
    static constexpr int kAll = -2;
    static constexpr int kNone = -2;

    /// A snapshot and how far it is to the next one.
    struct Place {
        int index;
        double fraction;
    };

    explicit PDataSequence_cls(unsigned int number);
    ~PDataSequence_cls();
    PDataSequence_cls(const PDataSequence_cls&) = delete;
    PDataSequence_cls& operator=(const PDataSequence_cls&) = delete;

    /// The folder of the project that is read or written next: relative names in it count from there. Empty
    /// for the current folder, else it ends in "/".
    void SetProjectFolder(const wxString& folder) { mProjectFolder = folder; }
    const wxString& GetProjectFolder() const { return mProjectFolder; }
    /// Takes the pattern from the path, counts the files and names every snapshot.
    void OpenDataFile(const wxString& path);
    void SetIndividualFilenames();
    /// Shortens the series.
    void SetSeqLength(int length);
    /// Releases one snapshot, or all; with `reset` their files, and the pattern, are forgotten.
    void Clear(int snapshot, bool reset);

    /// Makes the data for an instant available; what is needed beyond whole snapshots depends on the
    /// fraction, the attributes and `interpolateAlways`. Without `wait` this only starts what can be started.
    void PrepareIndex(int index, double fraction, bool interpolateAlways, bool wait);
    /// True when the instant can be drawn. An instant without a file is ready and draws nothing.
    bool IsTheIndexReady(int index, double fraction, bool interpolateAlways);
    bool IsTheIndexLoaded(int index) const;

    int GetUsedTotalMemoryMB() const;
    int GetLoadedFrameNumber() const;
    /// Releases snapshots between the steps of playback: those whose number leaves a remainder above 1. The
    /// one that is shown and its successor stay, or they would be read again at once.
    void ReleaseMemoryOutofStep(int step, int shown = kNone);
    /// Releases the snapshot that playback needs last. False when none can go.
    bool ReleaseMemoryAStep(int current, int step) { return ReleaseFarthest(current, step) >= 0; }
    /// The same; says which one has been released, -1 for none.
    int ReleaseFarthest(int current, int step);
    /// The farthest loaded snapshot after, or before, the current one with this key frame tag; -1 for none.
    int SearchLowNeedStepLarge(int current, bool tag) const;
    int SearchLowNeedStepSmall(int current, bool tag) const;

    /// Key frame tags: tagged snapshots are released last.
    void SetSnipping(int index);
    void ClearSnipping();

    int GetSeqLength() const;
    int ClampIndexWithinRange(int index) const;
    /// What is shown at a data position, which may be any number: behind the last snapshot the last one.
    Place GetPlace(double position) const;
    const wxString& GetFilename(int index) const { return GetSnap(index).GetFilePath(); }
    PDataSnap_cls::FileState GetFilenameStatus(int index) const { return GetSnap(index).GetFileState(); }
    int GetParticleNumber(int index) const { return GetSnap(index).GetParticleNumber(); }
    double GetTime(int index) const { return GetSnap(index).GetTime(); }
    /// Time from the snapshot to the next one, times the factor. 0 for the last one, and towards a file that
    /// is not there or was never read: then nothing moves.
    double GetDT(int index, double factor) const;
    /// Copies the particles of one loaded snapshot to another with the same number of them.
    void Special_Copy(int from, int to);

    PDataSnap_cls& GetSnap(int index) {
        return *mSnapshots[static_cast<size_t>(ClampIndexWithinRange(index))];
    }
    const PDataSnap_cls& GetSnap(int index) const {
        return *mSnapshots[static_cast<size_t>(ClampIndexWithinRange(index))];
    }
    const FileSequence_cls& GetFiles() const { return mFiles; }
    /// What a drawable state takes from the four attributes.
    std::array<SnapAttribute_cls, kAttributes> GetSnapAttributes() const;
    GLAttribute_cls& GetAttribute(int index) { return *mAttributes[static_cast<size_t>(index)]; }
    const std::array<std::unique_ptr<GLAttribute_cls>, kAttributes>& GetAttributes() const {
        return mAttributes;
    }

    /// The key line, the pattern as the project had it or as it is found from there, and the attributes.
    wxString Serialize() const;
    /// Takes the key line and the file name on the line after it, and opens that without an undo command.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);

    /// Called just before the particles of a block are freed, so that nobody goes on borrowing them.
    void SetReleaseObserver(std::function<void(const PDataBlock_cls&)> observer) {
        mReleaseObserver = std::move(observer);
    }
    void BlockIsReleased(const PDataBlock_cls& block) const {
        if (mReleaseObserver) mReleaseObserver(block);
    }

  private:
    wxString GetNameForProject() const;
    bool IsInterpolationNeeded(double fraction, bool interpolateAlways) const;
    int FarthestLoaded(int from, int to, bool tag) const;

    std::vector<std::unique_ptr<PDataSnap_cls>> mSnapshots;
    std::array<std::unique_ptr<GLAttribute_cls>, kAttributes> mAttributes;
    FileSequence_cls mFiles;
    wxString mProjectFolder;
    wxString mNameAsRead;    ///< in the project; empty for data that were opened otherwise
    wxString mFolderAsRead;  ///< of that project
    ConfItemSTR_cls mKeyItem;
    std::function<void(const PDataBlock_cls&)> mReleaseObserver;
};
