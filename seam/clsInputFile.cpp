#include "seam/clsInputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "seam/clsTextCoding.h"

std::optional<InputFile_cls> InputFile_cls::Open(const wxString& path, wxString* why) {
    const auto fail = [why](const char* reason) {
        if (why) *why = FromBytes(reason);
        return std::nullopt;
    };
    // O_NONBLOCK: opening a pipe that nobody writes to must not wait; it is refused below.
    const int descriptor = open(ToBytes(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return fail(std::strerror(errno));

    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        const bool folder = S_ISDIR(status.st_mode);
        close(descriptor);
        return fail(folder ? "is a directory" : "is no regular file");
    }
    return InputFile_cls(descriptor, static_cast<uint64_t>(status.st_size));
}

InputFile_cls::InputFile_cls(InputFile_cls&& other) noexcept
    : mDescriptor(std::exchange(other.mDescriptor, -1)), mSize(other.mSize) {}

InputFile_cls& InputFile_cls::operator=(InputFile_cls&& other) noexcept {
    std::swap(mDescriptor, other.mDescriptor);
    std::swap(mSize, other.mSize);
    return *this;
}

InputFile_cls::~InputFile_cls() {
    if (mDescriptor >= 0) close(mDescriptor);
}

size_t InputFile_cls::ReadAt(uint64_t position, void* destination, size_t bytes, std::string* why) const {
    size_t done = 0;
    while (done < bytes) {
        const ssize_t got = pread(mDescriptor, static_cast<char*>(destination) + done, bytes - done,
                                  static_cast<off_t>(position + done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 && why) *why = std::strerror(errno);
        if (got <= 0) break;
        done += static_cast<size_t>(got);
    }
    return done;
}
