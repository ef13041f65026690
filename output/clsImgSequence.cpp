#include "output/clsImgSequence.h"

#include <wx/filename.h>
#include <wx/tokenzr.h>

#include "data/clsFileSequence.h"
#include "output/clsFrameNames.h"
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

bool ImgSequence_cls::MayReplace() const {
    if (mResume) return true;
    const FrameNames_cls names(mPattern, mFirst == mLast);
    int there = 0;
    for (int frame = mFirst; frame <= mLast; frame += mStep) there += wxFileExists(names.Of(frame)) ? 1 : 0;
    wxString text;
    if (there > 0)
        text = wxString::Format("%d of the %d pictures are there already, in %s\n", there, GetFrames(),
                                wxFileName(mPattern).GetPath());
    if (!mMovie.empty() && wxFileExists(mMovie)) text += "The film is there already: " + mMovie + "\n";
    return text.empty() || UserMessage_cls::AskYesNo("Replace?", text + "Replace what is there?");
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
    if (!mMovie.empty())
        arguments.insert(arguments.end(), {"--movie", mMovie, "--fps", wxString::Format("%d", mRate)});
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
