#include "data/clsBinaryFile.h"

#include <cstring>
#include <numeric>
#include <span>

namespace {

/// Reads numbers of the file's start, in the machine's byte order or the other.
class Numbers {
  public:
    Numbers(const std::string& bytes, bool swapped) : mBytes(bytes), mSwapped(swapped) {}

    int32_t At(size_t position) const {
        uint32_t value = 0;
        if (position + sizeof value > mBytes.size()) return -1;
        std::memcpy(&value, mBytes.data() + position, sizeof value);
        return static_cast<int32_t>(mSwapped ? __builtin_bswap32(value) : value);
    }

  private:
    const std::string& mBytes;
    const bool mSwapped;
};

constexpr uint64_t kDefaultHeaderByte = 8;
constexpr uint64_t kDefaultRecordByte = 40;

std::optional<FileKind_cls> DefaultRecord(const FileStart_cls& start, const Numbers& numbers) {
    const int32_t count = numbers.At(4);
    if (count < 0 ||
        start.mFileByte != kDefaultHeaderByte + kDefaultRecordByte * static_cast<uint64_t>(count))
        return std::nullopt;
    return FileKind_cls{.mKind = FileKind_cls::kDefaultRecord,
                        .mWords = wxString::Format("40-byte records, %d particles", count),
                        .mPreset = LoadPreset_cls::GetKnown().front()};
}

/// One of the three kinds of particles a Tipsy file may hold, in the order of the file.
struct TipsyKind {
    const char* name;
    std::vector<int> body;

    uint64_t GetRecordByte() const {
        return std::accumulate(body.begin(), body.end(), uint64_t{0}, [](uint64_t sum, int code) {
            return sum + uint64_t{4} * GrammerBase_cls::BodyUnits(code);
        });
    }
};

/// Softening or smoothing length is the radius; value1 is the density of gas, the potential of the others.
const std::vector<TipsyKind>& TipsyKinds() {
    static const std::vector<TipsyKind> kinds = {
        {"gas", {2, 0, 1, 8, 2, 5, 2, 2}}, {"dark", {2, 0, 1, 5, 8}}, {"star", {2, 0, 1, 2, 2, 5, 8}}};
    return kinds;
}

/// Double time, count, dimensions, counts of gas, dark and star particles; then often four bytes of padding.
std::optional<FileKind_cls> Tipsy(const FileStart_cls& start, const Numbers& numbers) {
    const int64_t all = numbers.At(8);
    const int32_t dimensions = numbers.At(12);
    const int32_t counts[] = {numbers.At(16), numbers.At(20), numbers.At(24)};
    if ((dimensions != 2 && dimensions != 3) || all <= 0) return std::nullopt;
    int64_t sum = 0;
    uint64_t bodyByte = 0;
    const TipsyKind* only = nullptr;
    int kindsThere = 0;
    wxString words = "Tipsy,";
    for (size_t i = 0; i < std::size(counts); ++i) {
        const TipsyKind& kind = TipsyKinds()[i];
        if (counts[i] < 0) return std::nullopt;
        sum += counts[i];
        bodyByte += static_cast<uint64_t>(counts[i]) * kind.GetRecordByte();
        if (counts[i] == 0) continue;
        only = &kind;
        ++kindsThere;
        words += wxString::Format(" %d %s", counts[i], kind.name);
    }
    if (sum != all || start.mFileByte < bodyByte) return std::nullopt;
    const uint64_t headerByte = start.mFileByte - bodyByte;
    if (headerByte != 28 && headerByte != 32) return std::nullopt;

    FileKind_cls result{
        .mKind = FileKind_cls::kTipsy, .mWords = words + " particles", .mPreset = std::nullopt};
    if (kindsThere > 1) {
        result.mWords += "; files of several kinds of particles cannot be read";
        result.mCannotBeRead = true;
        return result;
    }
    std::vector<int> head = {2, 2, 1, 2, 2, 2, 2};
    if (headerByte == 32) head.push_back(2);
    result.mPreset = LoadPreset_cls{
        .mName = wxString::Format("Tipsy %s particles", only->name), .mHead = head, .mBody = only->body};
    return result;
}

std::optional<FileKind_cls> Known(const FileStart_cls& start, bool swapped) {
    const Numbers numbers(start.mBytes, swapped);
    if (auto kind = Tipsy(start, numbers)) return kind;
    return DefaultRecord(start, numbers);
}

}  // namespace

FileKind_cls RecogniseBinary(const FileStart_cls& start) {
    if (auto kind = Known(start, false)) return *kind;
    FileKind_cls kind;
    kind.mWords = wxString::Format("a binary file of %llu bytes, of no known kind",
                                   static_cast<unsigned long long>(start.mFileByte));
    if (const auto other = Known(start, true)) {
        kind.mWords = other->mWords + ", but in the other byte order, which cannot be read";
        kind.mCannotBeRead = true;
    }
    return kind;
}
