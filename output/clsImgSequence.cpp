#include "output/clsImgSequence.h"

#include <wx/tokenzr.h>

#include "data/clsFileSequence.h"
#include "render/clsPanelSettings.h"
#include "seam/clsUserMessage.h"

bool ImgSequence_cls::EnsureNumbered() {
    FileSequence_cls files(mPattern);
    if (files.IsNumbered() || mFirst == mLast) return true;
    if (!UserMessage_cls::AskYesNo("Sequence Format error", "Not Sequence. Append 4-digit tag ?"))
        return false;
    // The tag takes the ending's place, and the ending chooses the format.
    const wxString ending = mPattern.Contains(".") ? "." + mPattern.AfterLast('.') : wxString();
    files.AppendDefaultSequenceTag();
    mPattern = files.GetPath();
    if (!ending.empty() && !mPattern.EndsWith(ending)) mPattern += ending;
    return true;
}

std::vector<wxString> ImgSequence_cls::MakeArguments(const wxString& project,
                                                     const PanelSettings_cls& panel) const {
    std::vector<wxString> arguments = {"--no-config",
                                       "--render",
                                       mPattern,
                                       "--frames",
                                       wxString::Format("%d:%d:%d", mFirst, mLast, mStep),
                                       "--size",
                                       wxString::Format("%dx%d", mWidth, mHeight)};
    if (!mMovie.empty()) arguments.insert(arguments.end(), {"--movie", mMovie});
    if (mResume) arguments.push_back("--resume");
    // A project does not bring panels' settings back; pictures without a window are those of the first panel.
    for (wxStringTokenizer lines(panel.Serialize(), "\r\n"); lines.HasMoreTokens();) {
        wxString line = lines.GetNextToken();
        if (!line.StartsWith("Panel") || line.length() < 6) continue;
        line[5] = '0';
        arguments.insert(arguments.end(), {"--set", line});
    }
    arguments.push_back(project);
    return arguments;
}
