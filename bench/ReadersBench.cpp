// Reading of whole snapshots, each beside plain reading of the same file in the same run.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <wx/init.h>

#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "data/clsDataLoader.h"
#include "data/clsPDataBlock.h"
#include "data/clsThreadAsciiReader.h"
#include "seam/clsDiagnostics.h"
#include "support/Beside.h"

namespace {

constexpr int kMillion = 1000000;
constexpr size_t kPieceByte = 640 * 1024;
constexpr size_t kHeaderByte = 8;

/// A data file in a temporary folder, gone with the object.
class DataFile {
  public:
    explicit DataFile(const std::string& bytes) {
        std::string name = (std::filesystem::temp_directory_path() / "varnholt-bench-XXXXXX").string();
        if (!mkdtemp(name.data())) std::abort();
        mFolder = name;
        mName = name + "/snap0000.dat";
        std::ofstream(mName, std::ios::binary) << bytes;
    }
    ~DataFile() { std::filesystem::remove_all(mFolder); }
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    const std::string& Name() const { return mName; }

  private:
    std::filesystem::path mFolder;
    std::string mName;
};

class Descriptor {
  public:
    explicit Descriptor(const std::string& name) : mDescriptor(open(name.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~Descriptor() { close(mDescriptor); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return mDescriptor; }
    size_t Size() const { return static_cast<size_t>(lseek(mDescriptor, 0, SEEK_END)); }
    size_t ReadAt(size_t position, char* to, size_t bytes) const {
        const ssize_t got = pread(mDescriptor, to, bytes, static_cast<off_t>(position));
        return got < 0 ? 0 : static_cast<size_t>(got);
    }

  private:
    int mDescriptor;
};

template <class Value>
void Append(std::string* bytes, const Value& value) {
    bytes->append(reinterpret_cast<const char*>(&value), sizeof value);
}

std::string BinarySnapshot(int count, bool isDefaultRecord) {
    std::string bytes;
    bytes.reserve(kHeaderByte + static_cast<size_t>(count) * 40);
    Append(&bytes, 1.5F);
    Append(&bytes, count);
    std::mt19937 random(1);
    std::uniform_real_distribution<float> unit(-1.0F, 1.0F);
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < (isDefaultRecord ? 7 : 4); ++k) Append(&bytes, unit(random));
        if (isDefaultRecord) Append(&bytes, i);
        if (isDefaultRecord) Append(&bytes, i % 4);
        Append(&bytes, unit(random));
    }
    return bytes;
}

std::string TextSnapshot(int count) {
    std::string text = "1.5\n" + std::to_string(count) + "\n";
    std::mt19937 random(1);
    std::uniform_real_distribution<float> unit(-1.0F, 1.0F);
    char number[32];
    const auto append = [&](auto value) {
        text.append(number, std::to_chars(number, std::end(number), value).ptr);
        text += ' ';
    };
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < 7; ++k) append(unit(random));
        append(i);
        append(i % 4);
        append(unit(random));
        text.back() = '\n';
    }
    return text;
}

void Load(const DataLoader_cls& loader, const DataFile& file, PDataBlock_cls* block) {
    PDataBlock_cls::mspCDataLoaderLink = &loader;
    const auto input = InputFile_cls::Open(file.Name());
    block->ReadHeader(*input, file.Name(), 0);
    block->ReadBody(*input, file.Name());
    block->ReleaseData();
}

/// Touches memory and gives it back. A virtual machine takes memory that lies free for a while back from its
/// guest, and whoever touches that next pays for the host's work: here neither of the two does.
void WarmFreeMemory() {
    constexpr size_t kByte = size_t{512} << 20;
    const LargeMemory_cls memory(kByte);
    for (size_t i = 0; i < kByte; i += 4096) memory.As<char>()[i] = 1;
}

/// The arrays of the plain reference, touched before.
struct PlainArrays {
    explicit PlainArrays(size_t count)
        : position(3 * count), velocity(3 * count), radius(count), value1(count), id(count), type(count) {}

    std::vector<float> position, velocity, radius, value1;
    std::vector<int32_t> id;
    std::vector<uint8_t> type;
};

/// Reads records of one size piece by piece on one thread and cuts each with cut(record, index).
template <size_t kRecordByte, class Cut>
void ReadPlainly(const Descriptor& file, std::vector<char>* piece, const Cut& cut) {
    piece->resize(kPieceByte / kRecordByte * kRecordByte);
    size_t index = 0;
    for (size_t position = kHeaderByte;;) {
        const size_t got = file.ReadAt(position, piece->data(), piece->size());
        for (size_t at = 0; at + kRecordByte <= got; at += kRecordByte) cut(piece->data() + at, index++);
        if (got < piece->size()) return;
        position += got;
    }
}

void DefaultRecordIntoRecycledArrays(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const DataFile file(BinarySnapshot(count, true));
    const DataLoader_cls loader;
    PlainArrays arrays(static_cast<size_t>(count));
    std::vector<char> piece;
    PDataBlock_cls block;
    Load(loader, file, &block);
    MeasureBeside(
        state,
        [&] {
            ReadPlainly<40>(Descriptor(file.Name()), &piece, [&](const char* record, size_t i) {
                int32_t type = 0;
                std::memcpy(&arrays.position[3 * i], record, 12);
                std::memcpy(&arrays.velocity[3 * i], record + 12, 12);
                std::memcpy(&arrays.radius[i], record + 24, 4);
                std::memcpy(&arrays.id[i], record + 28, 4);
                std::memcpy(&type, record + 32, 4);
                arrays.type[i] = static_cast<uint8_t>(std::clamp(type, 0, 4));
                std::memcpy(&arrays.value1[i], record + 36, 4);
            });
        },
        [&] { Load(loader, file, &block); });
    ParticleBuffer_cls::DropSpare();
}

void DefaultRecordIntoFreshMemory(benchmark::State& state) {
    const DataFile file(BinarySnapshot(static_cast<int>(state.range(0)), true));
    const DataLoader_cls loader;
    MeasureBeside(
        state,
        [&] {
            const Descriptor descriptor(file.Name());
            const size_t size = descriptor.Size();
            const auto memory = std::make_unique_for_overwrite<char[]>(size);
            size_t done = 0;
            while (done < size) done += descriptor.ReadAt(done, memory.get() + done, size - done);
        },
        [&] {
            PDataBlock_cls block;
            Load(loader, file, &block);
            ParticleBuffer_cls::DropSpare();
        },
        WarmFreeMemory);
}

void WalkedGrammar(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const DataFile file(BinarySnapshot(count, false));
    DataLoader_cls loader;
    loader.ReadStrLine("DataLoadGrammerBody=0 2 8");
    PlainArrays arrays(static_cast<size_t>(count));
    std::vector<char> piece;
    PDataBlock_cls block;
    Load(loader, file, &block);
    MeasureBeside(
        state,
        [&] {
            ReadPlainly<20>(Descriptor(file.Name()), &piece, [&](const char* record, size_t i) {
                std::memcpy(&arrays.position[3 * i], record, 12);
                std::memcpy(&arrays.value1[i], record + 16, 4);
            });
        },
        [&] { Load(loader, file, &block); });
    ParticleBuffer_cls::DropSpare();
}

void TextIntoFreshMemory(benchmark::State& state) {
    const DataFile file(TextSnapshot(static_cast<int>(state.range(0))));
    DataLoader_cls loader;
    loader.ReadStrLine("DataLoadDataType=1");
    GThreadNumberReadAscii = 2;
    MeasureBeside(
        state,
        [&] {
            const Descriptor descriptor(file.Name());
            const size_t size = descriptor.Size();
            void* memory = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, descriptor.Get(), 0);
            const char* now = static_cast<const char*>(memory);
            const char* end = now + size;
            float sum = 0.0F;
            while (now != end) {
                float value = 0.0F;
                const char* behind = std::from_chars(now, end, value).ptr;
                sum += value;
                now = behind == now ? now + 1 : behind;
            }
            benchmark::DoNotOptimize(sum);
            munmap(memory, size);
        },
        [&] {
            PDataBlock_cls block;
            Load(loader, file, &block);
            ParticleBuffer_cls::DropSpare();
        },
        WarmFreeMemory);
}

BENCHMARK(DefaultRecordIntoRecycledArrays)
    ->Arg(10 * kMillion)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(DefaultRecordIntoFreshMemory)
    ->Arg(10 * kMillion)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(WalkedGrammar)->Arg(10 * kMillion)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(TextIntoFreshMemory)->Arg(kMillion)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const wxInitializer wx;  // worker threads need it
    SetDiagnosticsOn(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
