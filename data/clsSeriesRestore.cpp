#include "data/clsSeriesRestore.h"

#include "seam/clsInputFile.h"
#include "seam/clsUserMessage.h"

namespace {

SeriesRestore_cls::BeginProgress& ProgressOfFrontEnd() {
    static SeriesRestore_cls::BeginProgress begin;
    return begin;
}

/// Words that say why it could not be done.
wxString Make(const SeriesFolder_cls& folder) {
    const wxString& file = folder.GetFile();
    if (!folder.IsOfSteps()) return folder.MakeLinks(SeriesNames_cls::Find(file));
    const auto& begin = ProgressOfFrontEnd();
    return StepSplitter_cls::Split(file, begin ? begin(file) : StepSplitter_cls::Progress()).words;
}

}  // namespace

void SeriesRestore_cls::SetProgress(BeginProgress begin) {
    ProgressOfFrontEnd() = std::move(begin);
}

wxString SeriesRestore_cls::Restore(const wxString& path) {
    const auto folder = SeriesFolder_cls::Of(path);
    if (!folder) return path;
    const wxString member = folder->GetPath() + "/" + path.AfterLast('/');
    wxString words = folder->GetFile() + " is gone, and the series that was made of it.";
    if (InputFile_cls::CanOpen(folder->GetFile())) words = Make(*folder);
    if (!words.empty() && !InputFile_cls::CanOpen(member)) UserMessage_cls::Tell("Warning", words);
    return member;
}
