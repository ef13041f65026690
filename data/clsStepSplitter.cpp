#include "data/clsStepSplitter.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

#include "data/clsFileStart.h"
#include "data/clsLammpsDump.h"
#include "data/clsLinePieces.h"
#include "data/clsSnapshotHeader.h"
#include "data/clsStepFinder.h"
#include "seam/clsOutputFile.h"
#include "seam/clsTextCoding.h"

namespace {

namespace fs = std::filesystem;

/// Bytes between two looks at the progress: some hundredths of a second.
constexpr uint64_t kProgressByte = uint64_t{8} << 20;
/// Says which file the folder was made of. Its presence means that the folder is whole.
constexpr const char* kMarkName = "source.txt";

/// The files that are written one after the other. Failure: kept in words; nothing more is written.
class StepFiles {
  public:
    StepFiles(std::function<std::string(size_t number)> name) : mName(std::move(name)) {}
    ~StepFiles() { Close(); }
    StepFiles(const StepFiles&) = delete;
    StepFiles& operator=(const StepFiles&) = delete;

    void Begin() {
        Close();
        mDescriptor = open(mName(mCount).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (mDescriptor < 0) Fail();
        ++mCount;
    }
    void Write(std::string_view bytes) {
        while (mDescriptor >= 0 && mFailure.empty() && !bytes.empty()) {
            const ssize_t wrote = write(mDescriptor, bytes.data(), bytes.size());
            if (wrote > 0) bytes.remove_prefix(static_cast<size_t>(wrote));
            if (wrote < 0 && errno != EINTR) Fail();
        }
    }
    void Close() {
        // A full disk may show only now.
        if (mDescriptor >= 0 && close(mDescriptor) != 0) Fail();
        mDescriptor = -1;
    }
    size_t GetCount() const { return mCount; }
    const std::string& GetFailure() const { return mFailure; }

  private:
    void Fail() {
        if (mFailure.empty()) mFailure = std::strerror(errno);
    }

    std::function<std::string(size_t number)> mName;
    std::string mFailure;
    size_t mCount = 0;
    int mDescriptor = -1;
};

/// Changes when the source does.
std::string MarkOf(const std::string& source) {
    std::error_code failed;
    const auto size = fs::file_size(source, failed);
    const auto time = fs::last_write_time(source, failed).time_since_epoch().count();
    return source + "\n" + std::to_string(size) + " " + std::to_string(time) + "\n";
}

/// What stands in the mark behind the source: the number of steps. Nothing when the folder is of another
/// file.
std::optional<size_t> StepsIn(const fs::path& folder, const std::string& mark) {
    std::ifstream stream(folder / kMarkName, std::ios::binary);
    std::string text(mark.size(), '\0');
    size_t steps = 0;
    if (!stream.read(text.data(), static_cast<std::streamsize>(text.size())) || text != mark ||
        !(stream >> steps) || stream.get() != '\n')
        return std::nullopt;
    return steps;
}

wxString NotEnoughRoom(const std::string& folder, uint64_t wanted) {
    struct statvfs status {};
    if (statvfs(folder.c_str(), &status) != 0) return {};
    const uint64_t there = static_cast<uint64_t>(status.f_bavail) * status.f_frsize;
    if (there > wanted) return {};
    return wxString::Format("%s: the steps take %llu MB, %llu MB are free", FromBytes(folder),
                            static_cast<unsigned long long>(wanted >> 20),
                            static_cast<unsigned long long>(there >> 20));
}

/// A folder under another name until it is whole; removed with all that is in it otherwise.
class PartFolder {
  public:
    explicit PartFolder(fs::path target) : mTarget(std::move(target)), mPath(mTarget) {
        mPath += SeriesFolder_cls::kPartTag + std::to_string(getpid());
        fs::remove_all(mPath, mFailed);
        fs::create_directories(mPath, mFailed);
    }
    ~PartFolder() {
        std::error_code ignored;
        fs::remove_all(mPath, ignored);
    }
    PartFolder(const PartFolder&) = delete;
    PartFolder& operator=(const PartFolder&) = delete;

    bool Commit() {
        fs::remove_all(mTarget, mFailed);
        if (!mFailed) fs::rename(mPath, mTarget, mFailed);
        return !mFailed;
    }
    const fs::path& GetPath() const { return mPath; }
    std::string GetFailure() const { return mFailed ? mFailed.message() : std::string(); }

  private:
    fs::path mTarget;
    fs::path mPath;
    std::error_code mFailed;
};

/// What the steps begin with, and the lines before the first one.
struct StepForm {
    std::string stepLine;
    unsigned int linesBefore = 0;

    explicit StepForm(std::string_view start) : stepLine(LammpsStepLine(start)) {
        // Units stand once, in two lines of their own.
        if (!stepLine.empty() && !start.starts_with(stepLine)) linesBefore = 2;
    }
};

struct Copied {
    std::string failure;
    std::string leftOut;
    bool cancelled = false;
};

Copied CopySteps(const InputFile_cls& file, StepFiles* steps, const StepSplitter_cls::Progress& progress) {
    const FileStart_cls start(file);
    const StepForm form(WithoutByteOrderMark(start.mBytes));
    LinePieces_cls pieces(file, form.linesBefore);
    StepFinder_cls finder{form.stepLine};
    Copied copied;
    std::vector<char> buffer;
    uint64_t told = 0;
    for (std::string_view lines; pieces.Next(&buffer, &lines) && finder.GetFailure().empty();) {
        size_t written = 0;
        bool isFull = false;
        for (const size_t begin : finder.Find(lines)) {
            steps->Write(lines.substr(written, begin - written));
            written = begin;
            isFull = steps->GetCount() == SeriesFolder_cls::kMostMembers;
            if (isFull) break;
            steps->Begin();
        }
        if (isFull) break;
        if (finder.GetFailure().empty()) steps->Write(lines.substr(written));
        copied.failure = steps->GetFailure();
        if (!copied.failure.empty()) return copied;
        if (pieces.GetPosition() < told + kProgressByte) continue;
        told = pieces.GetPosition();
        copied.cancelled = progress && !progress(told, file.GetSize());
        if (copied.cancelled) return copied;
    }
    steps->Close();
    copied.failure = steps->GetFailure().empty() ? pieces.GetFailure() : steps->GetFailure();
    copied.leftOut = finder.GetFailure();
    return copied;
}

}  // namespace

FileStart_cls StepSplitter_cls::FirstStep(const FileStart_cls& start, double stepByte) {
    std::string_view lines = WithoutByteOrderMark(start.WholeLines());
    const StepForm form(lines);
    for (unsigned int i = 0; i < form.linesBefore; ++i) TakeLine(&lines);
    const std::vector<size_t> starts = StepFinder_cls(form.stepLine).Find(lines);
    FileStart_cls step = start;
    const size_t begin = starts.empty() ? 0 : starts[0];
    step.mBytes = lines.substr(begin, starts.size() < 2 ? std::string_view::npos : starts[1] - begin);
    step.mFileByte = step.mBytes.size();
    if (starts.size() < 2) step.mFileByte = std::max(step.mFileByte + 1, static_cast<uint64_t>(stepByte));
    return step;
}

StepSplitter_cls::Result StepSplitter_cls::Split(const wxString& path, const Progress& progress) {
    Result result;
    wxString why;
    const auto file = InputFile_cls::Open(path, &why);
    if (!file) {
        result.words = path + ": " + why;
        return result;
    }
    const SeriesFolder_cls series(path, SeriesFolder_cls::Content::Steps);
    const std::string mark = MarkOf(ToBytes(series.GetFile()));
    const fs::path target = ToBytes(series.GetPath());
    if (const auto steps = StepsIn(target, mark)) {
        result.first = series.GetMember(0);
        result.steps = *steps;
        return result;
    }
    PartFolder part(target);
    result.words = NotEnoughRoom(part.GetPath().string(), file->GetSize());
    if (!result.words.empty()) return result;

    const auto fail = [&](const std::string& words) {
        result.words = series.GetPath() + ": " + FromBytes(words);
        return result;
    };
    if (!part.GetFailure().empty()) return fail(part.GetFailure());
    StepFiles steps(
        [&](size_t number) { return (part.GetPath() / ToBytes(series.GetMemberName(number))).string(); });
    const Copied copied = CopySteps(*file, &steps, progress);
    result.cancelled = copied.cancelled;
    if (copied.cancelled) return result;
    if (!copied.failure.empty()) return fail(copied.failure);
    if (steps.GetCount() == 0) return fail("the file holds no time steps");
    result.words =
        OutputFile_cls::WriteWhole(FromBytes((part.GetPath() / kMarkName).string()),
                                   mark + std::to_string(steps.GetCount()) + "\n", OutputFile_cls::Sync::No);
    if (!result.words.empty()) return result;
    if (!part.Commit()) return fail(part.GetFailure());
    if (!copied.leftOut.empty())
        result.words = path + ": " + FromBytes(copied.leftOut) + "; the series ends there";
    result.first = series.GetMember(0);
    result.steps = steps.GetCount();
    return result;
}
