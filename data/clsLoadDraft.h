#pragma once

#include <wx/string.h>

#include <vector>

#include "data/clsFileKind.h"
#include "data/clsRecordPreview.h"
#include "data/clsSeriesNames.h"

/// The opening of data while the user prepares it: the chosen file, what it is, the settings it would be read
/// with, and how its first records look then. Changes nothing of the program: the settings are a copy.
/// Owned by whoever asks the user. Threads: GUI thread; choosing a file reads its first megabyte and lists
/// its folder. Failure: a file that cannot be read is told in words.
class LoadDraft_cls {
  public:
    /// What becomes of the colours when the data are opened.
    enum Colors : unsigned int { kKeepColors, kColorByType, kColorByValue };

    /// Starts from the present settings, and the file opened last if it is still there.
    explicit LoadDraft_cls(const DataLoader_cls& settings);

    /// Takes another file. One of a known kind brings the settings it needs.
    void SetFile(const wxString& path);
    /// As SetFile(), but the settings stay as they are.
    void SetFileOnly(const wxString& path);
    /// Empty: none was chosen, or it cannot be read.
    const wxString& GetFile() const { return mFile; }
    /// The file in words, or why it cannot be read.
    const wxString& GetWords() const { return mWords; }
    bool IsFileGood() const { return mIsFileGood; }
    const FileKind_cls& GetKind() const { return mKind; }

    /// The files from the chosen one on are not numbered by one, or one file holds many steps.
    bool CanBeSeries() const { return HasManySteps() || !mSeries.IsOrdinary(); }
    bool HasManySteps() const { return mKind.mHasManySteps; }
    /// Open them as a series all the same: through links, or by splitting. On for every new file.
    bool IsAsSeries() const { return mAsSeries && CanBeSeries(); }
    void SetAsSeries(bool asSeries);
    wxString DescribeSeries() const;
    const SeriesNames_cls& GetSeries() const { return mSeries; }

    /// The settings to choose among: the file's own when its kind is known, those the draft began with, and
    /// known layouts.
    const std::vector<LoadPreset_cls>& GetPresets() const { return mPresets; }
    void ApplyPreset(size_t number);

    /// A copy of the loader settings. After a change of the layout, Update() looks at the file anew.
    DataLoader_cls& GetLoader() { return mLoader; }
    const DataLoader_cls& GetLoader() const { return mLoader; }
    void Update();
    const RecordPreview_cls& GetPreview() const { return mPreview; }

    /// The periodic box that the file tells, and whether it is to be used.
    const std::optional<LoadPreset_cls::Box>& GetBox() const { return mBox; }
    bool mUseBox = true;
    unsigned int mColors = kKeepColors;

  private:
    void Look(const wxString& path);
    void TakePreset(const LoadPreset_cls& preset);
    void CheckOrderOfIDs();
    void CollectPresets();

    DataLoader_cls mLoader;
    LoadPreset_cls mBefore;
    wxString mFile;
    wxString mWords;
    bool mIsFileGood = false;
    bool mAsSeries = true;
    FileKind_cls mKind;
    SeriesNames_cls mSeries;
    std::optional<FileStart_cls> mStart;
    std::vector<LoadPreset_cls> mPresets;
    std::optional<LoadPreset_cls::Box> mBox;
    RecordPreview_cls mPreview;
};
