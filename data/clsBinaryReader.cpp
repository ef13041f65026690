#include "data/clsBinaryReader.h"

#include <algorithm>
#include <cstring>

#include "data/clsLoadNumber.h"

namespace {

/// Records cut at a time: their bytes and their places in the arrays fit into 32 KiB.
constexpr size_t kGroup = 256;

template <size_t kByte>
void CutColumn(const char* from, size_t stride, size_t count, void* to) {
    char* place = static_cast<char*>(to);
    for (size_t i = 0; i < count; ++i) std::memcpy(place + kByte * i, from + stride * i, kByte);
}

template <uint8_t (*Store)(int32_t)>
void CutTypes(const char* from, size_t stride, size_t count, uint8_t* to) {
    for (size_t i = 0; i < count; ++i) to[i] = Store(LoadNumber<int32_t>(from + stride * i));
}

/// Walked layouts keep the low byte of the type before it is limited, so that 256 is type 0 there: existing
/// projects rely on it. The default record limits the whole number.
uint8_t StoreLowByte(int32_t type) {
    return ParticleTarget_cls::ClampType(static_cast<uint8_t>(type));
}

/// The highest bit is set when the value is infinite or not a number: only then all exponent bits are set,
/// and adding one to the exponent carries.
uint32_t NotFiniteBit(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & 0x7FFFFFFFU) + 0x00800000U;
}

int CountNotFinite(const float* position, size_t count) {
    int bad = 0;
    for (const float* end = position + 3 * count; position != end; position += 3) {
        const uint32_t any =
            NotFiniteBit(position[0]) | NotFiniteBit(position[1]) | NotFiniteBit(position[2]);
        bad += static_cast<int>(any >> 31);
    }
    return bad;
}

/// A loop of fixed length without branches, which the compiler does in wide registers.
bool IsGroupFinite(const float* position) {
    uint32_t any = 0;
    for (size_t i = 0; i < 3 * kGroup; ++i) any |= NotFiniteBit(position[i]);
    return any >> 31 == 0;
}

}  // namespace

BinaryReader_cls::BinaryReader_cls(const GrammerBase_cls& grammer)
    : mRecordByte(grammer.GetRecordByte()), mIsDefaultRecord(grammer.IsDefaultRecord()) {
    size_t offset = 0;
    for (const int code : grammer.GetBodyGrammer()) {
        mItems.push_back({code, offset});
        offset += size_t{4} * GrammerBase_cls::BodyUnits(code);
    }
}

BodyReport_cls BinaryReader_cls::Read(std::span<const char> bytes, int first,
                                      const ParticleTarget_cls& target) const {
    BodyReport_cls report;
    if (mRecordByte == 0) return report;
    const size_t records =
        std::min(bytes.size() / mRecordByte, static_cast<size_t>(std::max(target.mCount - first, 0)));
    for (size_t done = 0; done < records; done += kGroup) {
        report.mBadRecords += ReadGroup(bytes.data() + done * mRecordByte, std::min(kGroup, records - done),
                                        static_cast<size_t>(first) + done, target);
    }
    report.mRecords = static_cast<int>(records);
    return report;
}

int BinaryReader_cls::ReadGroup(const char* records, size_t count, size_t first,
                                const ParticleTarget_cls& target) const {
    int bad = 0;
    for (const auto& [code, offset] : mItems) {
        const char* from = records + offset;
        switch (code) {
            case GrammerBase_cls::kXYZ: {
                float* position = target.mPosition + 3 * first;
                CutColumn<12>(from, mRecordByte, count, position);
                bad = count < kGroup || !IsGroupFinite(position) ? CountNotFinite(position, count) : 0;
                break;
            }
            case GrammerBase_cls::kVelocity:
                CutColumn<12>(from, mRecordByte, count, target.mVelocity + 3 * first);
                break;
            case GrammerBase_cls::kRadius:
                CutColumn<4>(from, mRecordByte, count, target.mRadius + first);
                break;
            case GrammerBase_cls::kID:
                if (target.mID) CutColumn<4>(from, mRecordByte, count, target.mID + first);
                break;
            case GrammerBase_cls::kType:
                if (mIsDefaultRecord) {
                    CutTypes<ParticleTarget_cls::ClampType>(from, mRecordByte, count, target.mType + first);
                } else {
                    CutTypes<StoreLowByte>(from, mRecordByte, count, target.mType + first);
                }
                break;
            case GrammerBase_cls::kValue1:
                CutColumn<4>(from, mRecordByte, count, target.mValue1 + first);
                break;
            default:
                break;
        }
    }
    return bad;
}
