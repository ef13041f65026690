#include "pov/clsPovRenderPool.h"

#include <algorithm>
#include <fstream>

#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const wxString& name) {
    return fs::path(ToBytes(name));
}

void Remove(const wxString& name) {
    std::error_code ignored;
    fs::remove(PathOf(name), ignored);
}

/// True when the file was written since then.
bool IsNewer(const wxString& name, fs::file_time_type then) {
    std::error_code error;
    const auto time = fs::last_write_time(PathOf(name), error);
    return !error && time >= then;
}

/// Without a display the renderer draws its preview on a terminal: that is no text.
bool HasControls(const std::string& line) {
    return std::any_of(line.begin(), line.end(),
                       [](char c) { return c >= 0 && c < ' ' && c != '\t' && c != '\r'; });
}

/// The line of a renderer's log that tells why it gave up: the last one with an error in it, else the last.
wxString LastWords(const wxString& log) {
    std::ifstream file(PathOf(log), std::ios::binary);
    constexpr std::streamoff kTail = 8192;
    file.seekg(0, std::ios::end);
    file.seekg(std::max<std::streamoff>(0, std::streamoff(file.tellg()) - kTail));
    std::string last;
    std::string telling;
    for (std::string line; std::getline(file, line);) {
        if (line.find_first_not_of(" \r\t-=") == std::string::npos || HasControls(line)) continue;
        last = line.substr(0, 300);
        if (line.find("rror") != std::string::npos || line.find("not found") != std::string::npos ||
            line.find("ermission") != std::string::npos) {
            telling = last;
        }
    }
    return FromBytes(telling.empty() ? last : telling);
}

/// The clock of a file system may be a little behind.
constexpr std::chrono::milliseconds kClockStep{20};

}  // namespace

void PovRenderPool_cls::SetPlaces(int places) {
    const auto processors = ShellCommand_cls::GetProcessors().size();
    const auto count = std::clamp<size_t>(static_cast<size_t>(std::max(places, 1)), 1, processors);
    mPlaces.resize(count);
    for (auto& place : mPlaces) place = std::make_unique<Place>();
}

bool PovRenderPool_cls::HasFreePlace() const {
    return std::any_of(mPlaces.begin(), mPlaces.end(), [](const auto& place) { return !place->thread; });
}

bool PovRenderPool_cls::IsIdle() const {
    return std::none_of(mPlaces.begin(), mPlaces.end(),
                        [](const auto& place) { return place->thread != nullptr; });
}

void PovRenderPool_cls::Start(const Job& job) {
    const auto free =
        std::find_if(mPlaces.begin(), mPlaces.end(), [](const auto& place) { return !place->thread; });
    Place& place = **free;
    place.job = job;
    place.done.store(false, std::memory_order_release);
    place.started = fs::file_time_type::clock::now() - kClockStep;
    place.thread = std::make_unique<ThreadPovRay_cls>();
    place.thread->SetParameters(mControl, job.command, job.postSceneCommand, &place.done);
    place.thread->SetLog(job.stem + ".log");
    if (mPlaces.size() > 1) {
        const auto all = ShellCommand_cls::GetProcessors();
        std::vector<int> own;
        for (auto i = static_cast<size_t>(free - mPlaces.begin()); i < all.size(); i += mPlaces.size())
            own.push_back(all[i]);
        place.thread->SetProcessors(own);
    }
    if (!place.thread->Start()) MsgBoxExit("Can't create thread", "Error!");
}

wxString PovRenderPool_cls::Judge(const Place& place) {
    const wxString log = place.job.stem + ".log";
    const bool written = IsNewer(place.job.picture, place.started);
    if (place.thread->GetResult() == 0 && !place.thread->IsAborted() && written) {
        Remove(log);
        return {};
    }
    // A picture that was begun is not one; the renderer's notes for going on with it are of no use either.
    if (written) Remove(place.job.picture);
    Remove(place.job.picture + ".pov-state");
    Remove(place.job.stem + ".pov-state");
    if (place.thread->IsAborted()) {
        Remove(log);
        return place.job.picture + ": aborted";
    }
    const wxString words = LastWords(log);
    return wxString::Format("frame %d: the renderer left no picture (%s)%s", place.job.frame,
                            ShellCommand_cls::Describe(place.thread->GetResult()),
                            words.empty() ? wxString() : ": " + words);
}

std::vector<PovRenderPool_cls::Outcome> PovRenderPool_cls::Collect() {
    std::vector<Outcome> outcomes;
    for (const auto& place : mPlaces) {
        if (!place->thread || !place->done.load(std::memory_order_acquire)) continue;
        place->thread->Join();
        outcomes.push_back({place->job.frame, place->job.picture, Judge(*place)});
        place->thread.reset();
    }
    return outcomes;
}

void PovRenderPool_cls::AbortAll() {
    for (const auto& place : mPlaces) {
        if (place->thread) place->thread->Abort();
    }
    for (const auto& place : mPlaces) {
        if (!place->thread) continue;
        place->thread->Join();
        Judge(*place);
        place->thread.reset();
    }
}
