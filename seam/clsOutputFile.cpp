#include "seam/clsOutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "seam/clsTextCoding.h"

namespace {

constexpr size_t kBufferByte = 1 << 20;
/// So much at once is not worth a copy.
constexpr size_t kLargeByte = 1 << 16;

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

/// A link is followed, so that it stays a link and its target is replaced.
std::string ResolveLink(const std::string& path) {
    char* resolved = realpath(path.c_str(), nullptr);
    std::string result = resolved ? resolved : path;
    std::free(resolved);
    return result;
}

}  // namespace

OutputFile_cls::OutputFile_cls(const wxString& path) : mPath(path), mTarget(ResolveLink(ToBytes(path))) {
    struct stat status {};
    const bool exists = stat(mTarget.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        Fail("open");
        return;
    }
    // Renaming would replace a file that nobody may write.
    if (exists && faccessat(AT_FDCWD, mTarget.c_str(), W_OK, AT_EACCESS) != 0) {
        Fail("write");
        return;
    }
    // The folder part is the target's; a stale temporary file of a killed run is passed over.
    const std::string folder = FolderOf(mTarget);
    const std::string name = mTarget.substr(mTarget.rfind('/') + 1, 200);
    for (int attempt = 0; attempt < 100 && mDescriptor < 0; ++attempt) {
        mTemporary = folder;
        mTemporary.append(".").append(name).append(".").append(std::to_string(getpid()));
        mTemporary.append("-").append(std::to_string(attempt)).append(".part");
        mDescriptor = open(mTemporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (mDescriptor < 0 && errno != EEXIST) break;
    }
    if (mDescriptor < 0) {
        Fail("write");
        mTemporary.clear();
        return;
    }
    // A file that is replaced keeps its rights.
    if (exists) fchmod(mDescriptor, status.st_mode & 07777);
}

OutputFile_cls::~OutputFile_cls() {
    if (mDescriptor >= 0) close(mDescriptor);
    if (!mTemporary.empty()) unlink(mTemporary.c_str());
}

void OutputFile_cls::Fail(const char* action) {
    if (mError.empty()) mError = mPath + ": cannot " + action + ": " + FromBytes(std::strerror(errno));
}

void OutputFile_cls::Write(const void* bytes, size_t count) {
    if (count >= kLargeByte) {
        Flush();
        WriteThrough(static_cast<const char*>(bytes), count);
        return;
    }
    mBuffer.append(static_cast<const char*>(bytes), count);
    if (mBuffer.size() >= kBufferByte) Flush();
}

void OutputFile_cls::Flush() {
    WriteThrough(mBuffer.data(), mBuffer.size());
    mBuffer.clear();
}

void OutputFile_cls::WriteThrough(const char* bytes, size_t count) {
    size_t done = 0;
    while (mError.empty() && done < count) {
        const ssize_t wrote = write(mDescriptor, bytes + done, count - done);
        if (wrote < 0 && errno != EINTR) Fail("write");
        if (wrote > 0) done += static_cast<size_t>(wrote);
    }
}

bool OutputFile_cls::Commit(Sync sync) {
    Flush();
    if (!mError.empty()) return false;
    if (sync == Sync::Durable && fsync(mDescriptor) != 0) Fail("write");
    if (close(mDescriptor) != 0) Fail("write");
    mDescriptor = -1;
    if (!mError.empty()) return false;
    if (std::rename(mTemporary.c_str(), mTarget.c_str()) != 0) {
        Fail("replace");
        return false;
    }
    mTemporary.clear();
    if (sync == Sync::Durable) {
        const int folder = open(FolderOf(mTarget).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (folder >= 0) {
            fsync(folder);
            close(folder);
        }
    }
    return true;
}

wxString OutputFile_cls::WriteWhole(const wxString& path, const std::string& bytes, Sync sync) {
    OutputFile_cls file(path);
    file.Write(bytes);
    file.Commit(sync);
    return file.GetError();
}
