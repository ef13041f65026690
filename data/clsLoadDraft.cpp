#include "data/clsLoadDraft.h"

#include <algorithm>

#include "data/clsFileSequence.h"
#include "data/clsSeriesFolder.h"
#include "data/clsStepSplitter.h"
#include "seam/clsTextCoding.h"

namespace {

LoadPreset_cls PresetOf(const DataLoader_cls& loader) {
    const auto head = loader.GetHeaderGrammer();
    const auto body = loader.GetBodyGrammer();
    return {.mName = "As before",
            .mText = loader.IsText(),
            .mHead = {head.begin(), head.end()},
            .mBody = {body.begin(), body.end()},
            .mInterpolateType = loader.mInterpolateType.mValue,
            .mVariableNumber = loader.mVariableNumber.mValue};
}

/// IDs of the first records, as they are shown.
std::vector<wxString> FirstIDs(const FileStart_cls& start, const DataLoader_cls& loader) {
    const RecordPreview_cls preview = RecordPreview_cls::Make(start, loader);
    const auto column = std::ranges::find(preview.mColumns, GrammerBase_cls::BodyName(GrammerBase_cls::kID));
    std::vector<wxString> ids;
    for (const auto& row : preview.mRows)
        ids.push_back(row[static_cast<size_t>(column - preview.mColumns.begin())].text);
    return ids;
}

}  // namespace

LoadDraft_cls::LoadDraft_cls(const DataLoader_cls& settings) {
    mLoader.CopyFrom(settings);
    mBefore = PresetOf(mLoader);
    CollectPresets();
    const wxString last = SeriesFolder_cls::GetSource(settings.mLastOpenedFile.GetItemStr());
    if (InputFile_cls::CanOpen(last)) SetFileOnly(last);
}

void LoadDraft_cls::SetFile(const wxString& path) {
    mAsSeries = true;
    Look(path);
    if (!mPresets.empty() && mKind.mPreset) {
        TakePreset(*mKind.mPreset);
        CheckOrderOfIDs();
    }
    Update();
}

void LoadDraft_cls::SetFileOnly(const wxString& path) {
    mAsSeries = true;
    Look(path);
    Update();
}

void LoadDraft_cls::Look(const wxString& path) {
    mFile = path;
    mKind = FileKind_cls();
    mStart.reset();
    mBox.reset();
    mColors = kKeepColors;
    mSeries = SeriesNames_cls::Find(path);
    // A pattern names its first member.
    const FileSequence_cls files(path);
    wxString why;
    const auto file =
        InputFile_cls::Open(files.GetPath() == files.GetFormat() ? files.GetModifiedStr(0) : path, &why);
    mIsFileGood = file.has_value();
    if (file) {
        mStart.emplace(*file);
        mKind = FileKind_cls::Recognise(*mStart);
        mWords = mKind.mWords;
    } else {
        mWords = path + ": " + why;
    }
    SetAsSeries(mAsSeries);
}

void LoadDraft_cls::SetAsSeries(bool asSeries) {
    mAsSeries = asSeries;
    if (HasManySteps() && asSeries) {
        // A step by itself may begin otherwise than the file does.
        const FileStart_cls step = StepSplitter_cls::FirstStep(*mStart, mKind.mStepByte);
        mKind.mPreset = FileKind_cls::Recognise(step).mPreset;
    } else if (mStart) {
        mKind.mPreset = FileKind_cls::Recognise(*mStart).mPreset;
    }
    CollectPresets();
}

wxString LoadDraft_cls::DescribeSeries() const {
    if (!HasManySteps()) return mSeries.Describe();
    const double steps = static_cast<double>(mStart->mFileByte) / std::max(mKind.mStepByte, 1.0);
    return wxString::Format("about %.0f time steps in one file, %.3g MB", steps,
                            static_cast<double>(mStart->mFileByte) / 1e6);
}

void LoadDraft_cls::CollectPresets() {
    mPresets.clear();
    if (mKind.mPreset) {
        mPresets.push_back(*mKind.mPreset);
        mPresets.back().mName = "As the file says: " + mPresets.back().mName;
    }
    mPresets.push_back(mBefore);
    const auto& known = LoadPreset_cls::GetKnown();
    mPresets.insert(mPresets.end(), known.begin(), known.end());
}

void LoadDraft_cls::ApplyPreset(size_t number) {
    TakePreset(mPresets.at(number));
    Update();
}

void LoadDraft_cls::TakePreset(const LoadPreset_cls& preset) {
    preset.ApplyTo(mLoader);
    mBox = preset.mBox;
    // Types tell particles apart where nothing has a value.
    const bool hasValue = mLoader.IsItemExistBody(GrammerBase_cls::kValue1);
    const bool hasType = mLoader.IsItemExistBody(GrammerBase_cls::kType);
    mColors = hasType && !hasValue ? kColorByType : kColorByValue;
}

void LoadDraft_cls::CheckOrderOfIDs() {
    if (!mStart || mSeries.mNames.size() < 2 || !mLoader.IsItemExistBody(GrammerBase_cls::kID)) return;
    const auto next = InputFile_cls::Open(mSeries.mFolder + FromBytes(mSeries.mNames[1]));
    if (next && FirstIDs(*mStart, mLoader) != FirstIDs(FileStart_cls(*next), mLoader))
        mLoader.mVariableNumber.mValue = DataLoader_cls::kVariable;
}

void LoadDraft_cls::Update() {
    mPreview = RecordPreview_cls();
    if (!mStart) return;
    const bool isStep = HasManySteps() && mAsSeries;
    mPreview = RecordPreview_cls::Make(
        isStep ? StepSplitter_cls::FirstStep(*mStart, mKind.mStepByte) : *mStart, mLoader);
}
