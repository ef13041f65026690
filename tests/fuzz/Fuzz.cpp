#include "fuzz/Fuzz.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstdio>
#include <cstring>
#include <optional>
#include <random>
#include <vector>

#include "data/clsAsciiReader.h"
#include "data/clsBinaryReader.h"
#include "data/clsDataLoader.h"
#include "data/clsParticleAdjuster.h"
#include "data/clsSnapshotHeader.h"
#include "seam/clsTextCoding.h"
#include "support/TargetArrays.h"

namespace {

const std::vector<std::string> kSeeds = {
    "0.5\n2\n1 2 3 4 5 6 0.1 1 0 0.5\n1e3 -2.5e-1 3D+05 4 5 6 0.1 2 3 -1\n",
    "ITEM: TIMESTEP\r\n500\r\nITEM: NUMBER OF ATOMS\r\n3\r\nITEM: BOX BOUNDS\r\n0 1\r\n1\t1\t0.125\t3\t4\r\n",
    "# x, y; z\n\n1.17549435e-38,16777217;3.4028235e38\nnan inf 1e400\n",
    std::string("\0\0\0\x3f\3\0\0\0\0\0\x80\x7f\1\2\3\4\5\6\7\x8\xff\xff\xff\xff\0\1\0\0", 28),
    "DataLoadGrammerBody=0 1 5 6 7 8",
    "DataLoadGrammerHead=2 0 2 1 2 2 2 2 2",
    "DataLoadDataType=1",
    "LoaderTranslate=1.5 -2 3e5",
    "LoaderScale=0.25",
    "LoaderLogarithm=1",
    "VariableNumber=2",
    "LastOpenedFile=/data/\xc3\xa9t\xe9/snap0000.dat",
    "k=1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18",
};
const std::vector<std::string> kWords = {"1e400",  "1D+05", "-nan",       "inf", "2147483648", "-1",
                                         "1e-999", "0x1F",  "4294967295", "\n",  "\r\n",       "#",
                                         " ",      "\t",    ",",          "=",   "1.5",        "00000000"};

class Mutator_cls {
  public:
    explicit Mutator_cls(uint64_t seed) : mRandom(seed) {}

    size_t Below(size_t end) { return static_cast<size_t>(mRandom() % end); }

    std::string Next() {
        std::string bytes = Pick(kSeeds);
        for (size_t changes = Below(8); changes > 0; --changes) Change(&bytes);
        return bytes;
    }

  private:
    const std::string& Pick(const std::vector<std::string>& texts) { return texts[Below(texts.size())]; }

    void Change(std::string* bytes) {
        const size_t at = Below(bytes->size() + 1);
        const size_t length = Below(bytes->size() - at + 1);
        switch (Below(8)) {
            case 0:
                bytes->insert(at, 1, static_cast<char>(mRandom()));
                break;
            case 1:
                if (at < bytes->size()) (*bytes)[at] = static_cast<char>(mRandom());
                break;
            case 2:
                if (at < bytes->size()) (*bytes)[at] = static_cast<char>((*bytes)[at] ^ 1 << Below(8));
                break;
            case 3:
                bytes->erase(at, length);
                break;
            case 4:
                bytes->insert(at, bytes->substr(at, std::min<size_t>(length, 200)));
                break;
            case 5:
                bytes->insert(at, Pick(kWords));
                break;
            case 6:
                bytes->insert(at, Pick(kSeeds));
                break;
            default:
                bytes->insert(at, Below(60), "0123456789.eD+- \n"[Below(17)]);
                break;
        }
    }

    std::mt19937_64 mRandom;
};

bool ArePossible(const TargetArrays_cls& arrays, const BodyReport_cls& report, int expected) {
    return report.mRecords == expected && report.mBadRecords >= 0 && report.mBadRecords <= report.mRecords &&
           std::ranges::all_of(arrays.mType, [](uint8_t type) { return type <= 4; });
}

bool AreEqual(const TargetArrays_cls& one, const TargetArrays_cls& other) {
    // By their bits: not a number equals itself.
    const auto same = [](float a, float b) {
        return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b);
    };
    return std::ranges::equal(one.mPosition, other.mPosition, same) && one.mID == other.mID &&
           one.mType == other.mType;
}

/// Memory of the text's exact size, so that a sanitizer sees every look behind its end.
struct Exact {
    explicit Exact(const std::string& text) : bytes(text.begin(), text.end()) {}
    std::string_view View() const { return {bytes.data(), bytes.size()}; }
    std::vector<char> bytes;
};

const char* TryText(const std::string& input, const DataLoader_cls& loader, size_t cut) {
    const Exact exact(input);
    const auto header = SnapshotHeader_cls::FromText(exact.View(), loader);
    if (header.mComplete && header.mTime && !(*header.mTime == *header.mTime)) return "time of a text header";

    std::string_view body = exact.View();
    for (unsigned int line = 0; line < loader.GetHeaderLine(); ++line) TakeLine(&body);
    const int records = AsciiReader_cls::CountRecords(body, INT_MAX);
    const AsciiReader_cls reader(loader);
    TargetArrays_cls whole(records);
    if (!ArePossible(whole, reader.Read(body, 0, whole.Target()), records)) return "text body";
    // In two pieces that part at a line feed.
    TargetArrays_cls pieces(records);
    const size_t lineFeed = body.find('\n', std::min(cut, body.size()));
    const size_t first = lineFeed == std::string_view::npos ? body.size() : lineFeed + 1;
    const auto before = reader.Read(body.substr(0, first), 0, pieces.Target());
    reader.Read(body.substr(first), before.mRecords, pieces.Target());
    if (!AreEqual(whole, pieces)) return "text body in pieces";

    ParticleAdjuster_cls(loader).DoAdjusting(pieces.Target(), 0, records);
    ParticleAdjuster_cls::SortById(pieces.Target(), records);
    return std::ranges::is_sorted(pieces.mID) ? nullptr : "order by ID";
}

const char* TryBinary(const std::string& input, const DataLoader_cls& loader) {
    const Exact exact(input);
    const auto header = SnapshotHeader_cls::FromBinary(exact.View(), loader);
    if (header.mBytesThere > input.size()) return "bytes of a binary header";
    const BinaryReader_cls reader(loader);
    const size_t there = reader.GetRecordByte() == 0 ? 0 : input.size() / reader.GetRecordByte();
    TargetArrays_cls arrays(static_cast<int>(there));
    const auto report = reader.Read(exact.View(), 0, arrays.Target());
    return ArePossible(arrays, report, arrays.mCount) ? nullptr : "binary body";
}

/// A line is offered to the loader, whose layout then reads the bytes to come, and to items of every class.
const char* TryLine(const std::string& input, DataLoader_cls* loader) {
    const wxString line = FromBytes(input);
    loader->ReadStrLine(line);
    if (loader->GetBodyGrammer().size() > 16 || loader->GetHeaderGrammer().size() > 16) return "grammar";
    if (loader->GetRecordByte() > 640 || loader->GetHeaderLine() > 160) return "sizes of a grammar";

    ConfItemSTR_cls text("k=", "");
    ConfItemINT_cls whole("k=", "0");
    ConfItemUINT_cls natural("k=", "0");
    ConfItemFLOAT_cls real("k=", "0");
    ConfItemDOUBLE_cls wide("k=", "0");
    ConfItemBOOL_cls flag("k=", "0");
    ConfItemINTARRAY_cls wholes("k=", "0 1");
    ConfItemFLOATARRAY_cls reals("k=", "0 1 2");
    for (ConfItem_cls* item : std::initializer_list<ConfItem_cls*>{&text, &whole, &natural, &real, &wide,
                                                                   &flag, &wholes, &reals}) {
        item->ReadStrLine(line);
        if (item->Serialize().length() > line.length() + 1000) return "length of an item's line";
    }
    return nullptr;
}

std::string Describe(const char* what, const std::string& input) {
    std::string text = std::string(what) + ":";
    for (const char byte : input) {
        std::array<char, 8> hex{};
        std::snprintf(hex.data(), hex.size(), " %02x", static_cast<unsigned int>(byte & 0xFF));
        text += hex.data();
    }
    return text;
}

}  // namespace

std::string RunFuzz(uint64_t inputs, uint64_t seed) {
    Mutator_cls mutator(seed);
    std::optional<DataLoader_cls> settings;
    for (uint64_t i = 0; i < inputs; ++i) {
        // Lines change the layout for the inputs to come, until it starts anew.
        if (i % 1000 == 0) settings.emplace();
        DataLoader_cls& loader = *settings;
        const std::string input = mutator.Next();
        const char* broken = TryText(input, loader, mutator.Below(input.size() + 1));
        if (!broken) broken = TryBinary(input, loader);
        if (!broken && mutator.Below(4) == 0) broken = TryLine(input, &loader);
        if (broken) return Describe(broken, input);
    }
    return {};
}
