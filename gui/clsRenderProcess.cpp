#include "gui/clsRenderProcess.h"

#include <wx/log.h>
#include <wx/utils.h>

#include <csignal>

#include "seam/clsTextCoding.h"

namespace {

constexpr size_t kKeptMessages = 6;

}  // namespace

void RenderProcess_cls::Child_cls::OnTerminate(int, int status) {
    mStatus = status;
    mEnded = true;
    if (mAlone) delete this;
}

RenderProcess_cls::~RenderProcess_cls() {
    if (!IsRunning()) return;
    Cancel();
    // The toolkit waits for the child to write its last picture, and holds the object until then.
    mProcess->mAlone = true;
    mProcess.release();
}

bool RenderProcess_cls::Start(const wxString& program, const std::vector<wxString>& arguments) {
    std::vector<const wchar_t*> words = {program.wc_str()};
    for (const wxString& argument : arguments) words.push_back(argument.wc_str());
    words.push_back(nullptr);
    mPaused = false;
    mCancelled = false;
    mDone = 0;
    mFile.clear();
    mErrorRest.clear();
    mOutputRest.clear();
    mMessages.clear();
    mProcess = std::make_unique<Child_cls>();
    const wxLogNull silent;
    // A group of its own: Ctrl+C in the terminal of this program is not for the child.
    mPid = wxExecute(words.data(), wxEXEC_ASYNC | wxEXEC_MAKE_GROUP_LEADER, mProcess.get());
    if (mPid <= 0) mProcess.reset();
    return mProcess != nullptr;
}

void RenderProcess_cls::Poll() {
    if (!mProcess) return;
    Take(mProcess->GetErrorStream(), mErrorRest, true);
    Take(mProcess->GetInputStream(), mOutputRest, false);
}

void RenderProcess_cls::Take(wxInputStream* stream, wxString& rest, bool progress) {
    char buffer[4096];
    while (stream && stream->CanRead()) {
        stream->Read(buffer, sizeof buffer);
        if (stream->LastRead() == 0) return;
        if (progress) rest += FromBytes(std::string(buffer, stream->LastRead()));
        for (size_t end = rest.find('\n'); end != wxString::npos; end = rest.find('\n')) {
            TakeLine(rest.substr(0, end));
            rest.erase(0, end + 1);
        }
    }
}

void RenderProcess_cls::TakeLine(const wxString& line) {
    long done = 0;
    const wxString count = line.BeforeFirst(' ');
    if (count.Contains("/") && count.BeforeFirst('/').ToLong(&done)) {
        mDone = static_cast<int>(done);
        mFile = line.AfterFirst(' ');
        return;
    }
    mMessages.push_back(line);
    if (mMessages.size() > kKeptMessages) mMessages.pop_front();
}

wxString RenderProcess_cls::GetMessages() const {
    wxString text;
    for (const wxString& message : mMessages) text += (text.empty() ? "" : "\n") + message;
    return text;
}

void RenderProcess_cls::Signal(int signal) const {
    if (IsRunning()) kill(static_cast<pid_t>(-mPid), signal);
}

void RenderProcess_cls::Pause(bool paused) {
    Signal(paused ? SIGSTOP : SIGCONT);
    mPaused = paused;
}

void RenderProcess_cls::Cancel() {
    mCancelled = true;
    Signal(SIGINT);
    if (mPaused) Pause(false);
}
