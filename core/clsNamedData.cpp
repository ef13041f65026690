#include "core/clsNamedData.h"

#include <algorithm>

#include "core/clsInterrupt.h"
#include "data/clsFileSequence.h"
#include "data/clsLoadDraft.h"
#include "data/clsSeriesFolder.h"
#include "data/clsStepSplitter.h"
#include "interp/clsPeriodicBoundary.h"
#include "seam/clsUserMessage.h"

namespace {

bool IsLayoutGiven(const std::vector<wxString>& settings) {
    return std::ranges::any_of(settings, [](const wxString& line) { return line.StartsWith("DataLoad"); });
}

/// Columns are a guess, which only a layout that cannot be right gives way to.
bool IsSure(const FileKind_cls& kind, const DataLoader_cls& loader) {
    return kind.mPreset && (kind.mKind != FileKind_cls::kColumns || !loader.IsText());
}

/// A numbered name whose next member is there means itself, whatever else the folder holds.
bool IsSeriesByItself(const wxString& file) {
    const FileSequence_cls files(file);
    return files.IsNumbered() && InputFile_cls::CanOpen(files.GetModifiedStr(1));
}

std::optional<wxString> MakeSeries(const LoadDraft_cls& draft) {
    const wxString& file = draft.GetFile();
    wxString words;
    wxString first;
    if (draft.HasManySteps()) {
        const auto result =
            StepSplitter_cls::Split(file, [](uint64_t, uint64_t) { return !Interrupt_cls::IsRaised(); });
        words = result.words;
        first = result.first;
    } else {
        const SeriesFolder_cls folder(file, SeriesFolder_cls::Content::Links);
        words = folder.MakeLinks(draft.GetSeries());
        if (words.empty()) first = folder.GetMember(0);
    }
    if (!words.empty()) PrintError(words);
    if (first.empty()) return std::nullopt;
    PrintError(file + ": note: " + draft.DescribeSeries() + ", opened as the series " + first);
    return first;
}

}  // namespace

std::optional<wxString> PrepareNamedData(const wxString& file, const std::vector<wxString>& settings,
                                         DataLoader_cls& loader, PeriodicBoundary_cls& periodic) {
    LoadDraft_cls draft(loader);
    draft.SetFileOnly(file);
    if (!draft.IsFileGood()) return file;
    const bool isLayoutOpen = !IsLayoutGiven(settings) && !draft.GetPreview().mMisfit.empty();
    if (isLayoutOpen && draft.GetKind().mCannotBeRead) {
        PrintError(file + ": " + draft.GetKind().mWords);
        return std::nullopt;
    }
    if (isLayoutOpen && IsSure(draft.GetKind(), loader)) {
        draft.SetFile(file);
        PrintError(file + ": note: read as " + draft.GetWords());
        loader.CopyFrom(draft.GetLoader());
        if (draft.GetBox()) periodic.SetBox(draft.GetBox()->space, draft.GetBox()->length);
    }
    return draft.CanBeSeries() && !IsSeriesByItself(file) ? MakeSeries(draft) : file;
}
