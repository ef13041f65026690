#include "output/clsMovie.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "data/clsSplitPath.h"
#include "output/clsThreadWriteMovie.h"
#include "seam/clsClock.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr int kEncoderPeriodMs = 2;
/// An encoder that is asked to end gets so long before it is forced to.
constexpr int kGraceMs = 500;

/// What ffmpeg is told: raw frames on its input, and for the usual containers a codec that everybody can
/// play. That wants even sides and a colour matrix that is named.
std::vector<std::string> Arguments(const wxString& extension, const std::string& target, int width,
                                   int height, int rate) {
    std::vector<std::string> words = {"ffmpeg",    "-hide_banner",
                                      "-loglevel", "error",
                                      "-nostdin",  "-y",
                                      "-f",        "rawvideo",
                                      "-pix_fmt",  "rgb24",
                                      "-s",        std::to_string(width) + "x" + std::to_string(height),
                                      "-r",        std::to_string(rate),
                                      "-i",        "pipe:0",
                                      "-an"};
    if (extension == ".mp4" || extension == ".mov" || extension == ".mkv" || extension == ".m4v") {
        for (const char* word : {"-c:v", "libx264", "-crf", "17", "-pix_fmt", "yuv420p", "-vf",
                                 "pad=ceil(iw/2)*2:ceil(ih/2)*2,scale=out_color_matrix=bt709:out_range=tv",
                                 "-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709"})
            words.emplace_back(word);
    }
    words.push_back("file:" + target);
    return words;
}

}  // namespace

std::unique_ptr<Movie_cls> Movie_cls::Start(const wxString& path, int width, int height, int rate,
                                            std::function<bool()> isGivenUp, wxString* why) {
    // A reader that has gone is told by write(), not by a signal that ends the program.
    std::signal(SIGPIPE, SIG_IGN);
    const SplitPath_cls split(path);
    const wxString temporary = split.mDirectory + "." + split.mName +
                               wxString::Format(".%d.part", static_cast<int>(getpid())) + split.mExtension;
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) {
        *why = path + ": " + FromBytes(std::strerror(errno));
        return nullptr;
    }
    std::vector<std::string> words =
        Arguments(split.mExtension.Lower(), ToBytes(temporary), width, height, rate);
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[0], STDIN_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    // A process group of its own: Ctrl+C is for us, and we tell ffmpeg.
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    pid_t process = -1;
    const int error = posix_spawnp(&process, "ffmpeg", &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[0]);
    if (error != 0) {
        close(ends[1]);
        *why = path + ": ffmpeg makes the movie and could not be started (" +
               FromBytes(std::strerror(error)) + "); on Debian: apt install ffmpeg";
        return nullptr;
    }
    return std::unique_ptr<Movie_cls>(new Movie_cls(path, temporary, std::move(isGivenUp), process, ends[1]));
}

Movie_cls::Movie_cls(const wxString& path, const wxString& temporary, std::function<bool()> isGivenUp,
                     pid_t process, int pipe)
    : mPath(path), mTemporary(temporary), mIsGivenUp(std::move(isGivenUp)), mProcess(process), mPipe(pipe) {}

Movie_cls::~Movie_cls() {
    if (mPipe < 0) return;
    EndEncoder();
    WaitForFrame();
    close(mPipe);
    unlink(ToBytes(mTemporary).c_str());
}

bool Movie_cls::HasEncoderEnded() {
    if (mProcess < 0) return true;
    int status = 0;
    const pid_t ended = waitpid(mProcess, &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR)) return false;
    // Of a process that is not there any more nothing is known.
    mStatus = ended == mProcess ? status : -1;
    mProcess = -1;
    return true;
}

void Movie_cls::EndEncoder() {
    const pid_t group = mProcess;
    if (HasEncoderEnded()) return;
    mBroken = true;
    kill(-group, SIGTERM);
    const long long end = Clock_cls::Current().Now() + kGraceMs;
    PollUntil([&] { return HasEncoderEnded() || Clock_cls::Current().Now() > end; }, kEncoderPeriodMs);
    // What it started holds the pipe, too.
    kill(-group, SIGKILL);
    PollUntil([this] { return HasEncoderEnded(); }, kEncoderPeriodMs);
}

bool Movie_cls::WaitForEncoder() {
    PollUntil([this] { return HasEncoderEnded() || mIsGivenUp(); }, kEncoderPeriodMs);
    EndEncoder();
    return WIFEXITED(mStatus) && WEXITSTATUS(mStatus) == 0 && !mBroken;
}

bool Movie_cls::WaitForFrame() {
    if (!mFrame) return !mBroken;
    const std::atomic<bool>& written = mFrame->GetFinished();
    PollUntil([&] { return written.load(std::memory_order_acquire) || mIsGivenUp(); }, kEncoderPeriodMs);
    if (!written.load(std::memory_order_acquire)) EndEncoder();
    mFrame->Join();
    mBroken = mBroken || mFrame->IsFailed();
    mFrame.reset();
    return !mBroken;
}

bool Movie_cls::Push(std::shared_ptr<const Picture_cls> picture) {
    if (!WaitForFrame()) return false;
    mFrame = std::make_unique<ThreadWriteMovie_cls>(mPipe, std::move(picture));
    if (!mFrame->Start()) MsgBoxExit("Can't create thread", "Error!");
    return true;
}

wxString Movie_cls::Finish() {
    WaitForFrame();
    close(std::exchange(mPipe, -1));
    const bool done = WaitForEncoder();
    if (done && std::rename(ToBytes(mTemporary).c_str(), ToBytes(mPath).c_str()) == 0) return {};
    const wxString reason =
        done ? FromBytes(std::strerror(errno)) : wxString("ffmpeg failed, see its words above");
    unlink(ToBytes(mTemporary).c_str());
    return mPath + ": the movie could not be made: " + reason;
}
