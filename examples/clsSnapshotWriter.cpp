#include "clsSnapshotWriter.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

constexpr std::size_t kBufferSize = std::size_t{4} << 20;

// No number takes more characters than this.
constexpr std::size_t kNumberRoom = 48;

// The box of a dump is fixed, so it is wide enough for the last snapshot.
constexpr float kBoxHalfWidth = 60.0F;

[[noreturn]] void Fail(const std::string& what, const std::filesystem::path& path, int error) {
    throw std::runtime_error(what + " '" + path.native() + "': " + std::generic_category().message(error));
}

/// A file under a temporary name, which goes away unless the file is finished.
class PendingFile_cls {
  public:
    explicit PendingFile_cls(std::filesystem::path path)
        : mPath(std::move(path)),
          mPendingPath(mPath.native() + ".part"),
          mFile(std::fopen(mPendingPath.c_str(), "wb")),
          mBuffer(std::make_unique<char[]>(kBufferSize)) {
        if (!mFile) {
            Fail("cannot write", mPath, errno);
        }
        // The own buffer is enough.
        std::setvbuf(mFile.get(), nullptr, _IONBF, 0);
    }

    ~PendingFile_cls() {
        if (mFinished) {
            return;
        }
        mFile.reset();
        std::error_code ignored;
        std::filesystem::remove(mPendingPath, ignored);
    }

    PendingFile_cls(const PendingFile_cls&) = delete;
    PendingFile_cls& operator=(const PendingFile_cls&) = delete;

    void Append(const void* data, std::size_t size) {
        Reserve(size);
        std::memcpy(mBuffer.get() + mUsed, data, size);
        mUsed += size;
    }

    void Append(std::string_view text) { Append(text.data(), text.size()); }

    /// Floating-point numbers get the fewest digits that give the same number again.
    template <typename Number>
    void AppendNumber(Number number, char separator) {
        Reserve(kNumberRoom);
        char* begin = mBuffer.get() + mUsed;
        char* end = std::to_chars(begin, begin + kNumberRoom - 1, number).ptr;
        *end++ = separator;
        mUsed += static_cast<std::size_t>(end - begin);
    }

    void Finish() {
        Flush();
        // Some file systems report a full disk only when the file is closed.
        if (std::fclose(mFile.release()) != 0) {
            Fail("cannot write", mPath, errno);
        }
        std::error_code error;
        std::filesystem::rename(mPendingPath, mPath, error);
        if (error) {
            Fail("cannot write", mPath, error.value());
        }
        mFinished = true;
    }

  private:
    struct Close_cls {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void Reserve(std::size_t size) {
        if (mUsed + size > kBufferSize) {
            Flush();
        }
    }

    void Flush() {
        if (std::fwrite(mBuffer.get(), 1, mUsed, mFile.get()) != mUsed) {
            Fail("cannot write", mPath, errno);
        }
        mUsed = 0;
    }

    std::filesystem::path mPath;
    std::filesystem::path mPendingPath;
    std::unique_ptr<std::FILE, Close_cls> mFile;
    std::unique_ptr<char[]> mBuffer;
    std::size_t mUsed = 0;
    bool mFinished = false;
};

void WriteBinary(PendingFile_cls& file, const Snapshot_cls& snapshot) {
    const auto count = static_cast<std::int32_t>(snapshot.mParticles.size());
    file.Append(&snapshot.mTime, sizeof snapshot.mTime);
    file.Append(&count, sizeof count);
    for (const Particle_cls& particle : snapshot.mParticles) {
        file.Append(&particle, sizeof particle);
    }
}

void WriteText(PendingFile_cls& file, const Snapshot_cls& snapshot) {
    file.AppendNumber(snapshot.mTime, '\n');
    file.AppendNumber(snapshot.mParticles.size(), '\n');
    for (const Particle_cls& particle : snapshot.mParticles) {
        for (const float number : {particle.mX, particle.mY, particle.mZ, particle.mVx, particle.mVy,
                                   particle.mVz, particle.mRadius}) {
            file.AppendNumber(number, ' ');
        }
        file.AppendNumber(particle.mId, ' ');
        file.AppendNumber(particle.mType, ' ');
        file.AppendNumber(particle.mValue1, '\n');
    }
}

void WriteDump(PendingFile_cls& file, const Snapshot_cls& snapshot) {
    float halfWidth = kBoxHalfWidth;
    for (const Particle_cls& particle : snapshot.mParticles) {
        halfWidth =
            std::max({halfWidth, std::abs(particle.mX), std::abs(particle.mY), std::abs(particle.mZ)});
    }
    file.Append("ITEM: TIMESTEP\n");
    file.AppendNumber(snapshot.mStep, '\n');
    file.Append("ITEM: NUMBER OF ATOMS\n");
    file.AppendNumber(snapshot.mParticles.size(), '\n');
    file.Append("ITEM: BOX BOUNDS ff ff ff\n");
    for (int axis = 0; axis < 3; ++axis) {
        file.AppendNumber(-halfWidth, ' ');
        file.AppendNumber(halfWidth, '\n');
    }
    file.Append("ITEM: ATOMS id type x y z\n");
    for (const Particle_cls& particle : snapshot.mParticles) {
        file.AppendNumber(particle.mId, ' ');
        file.AppendNumber(particle.mType + 1, ' ');
        file.AppendNumber(particle.mX, ' ');
        file.AppendNumber(particle.mY, ' ');
        file.AppendNumber(particle.mZ, '\n');
    }
}

}  // namespace

SnapshotWriter_cls::SnapshotWriter_cls(std::filesystem::path folder, std::string name, SnapshotFormat format)
    : mFolder(std::move(folder)), mName(std::move(name)), mFormat(format) {
    std::error_code error;
    std::filesystem::create_directories(mFolder, error);
    if (error) {
        Fail("cannot create the folder", mFolder, error.value());
    }
}

void SnapshotWriter_cls::Write(const Snapshot_cls& snapshot) const {
    PendingFile_cls file(FileName(snapshot.mNumber));
    switch (mFormat) {
        case SnapshotFormat::kBinary:
            WriteBinary(file, snapshot);
            break;
        case SnapshotFormat::kText:
            WriteText(file, snapshot);
            break;
        case SnapshotFormat::kDump:
            WriteDump(file, snapshot);
            break;
    }
    file.Finish();
}

std::filesystem::path SnapshotWriter_cls::FileName(std::size_t number) const {
    std::string digits = std::to_string(number);
    digits.insert(0, digits.size() < 4 ? 4 - digits.size() : 0, '0');
    if (mFormat == SnapshotFormat::kDump) {
        return mFolder / (mName + "." + digits + ".txt");
    }
    return mFolder / (mName + digits + (mFormat == SnapshotFormat::kText ? ".txt" : ".dat"));
}
