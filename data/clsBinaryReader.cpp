#include "data/clsBinaryReader.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

template <class Value>
Value Load(const char* bytes) {
    Value value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

bool IsFinite(const float* position) {
    return std::isfinite(position[0]) && std::isfinite(position[1]) && std::isfinite(position[2]);
}

}  // namespace

BinaryReader_cls::BinaryReader_cls(const GrammerBase_cls& grammer) : mRecordByte(grammer.GetRecordByte()) {
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
    for (size_t record = 0; record < records; ++record) {
        const char* begin = bytes.data() + record * mRecordByte;
        const size_t particle = static_cast<size_t>(first) + record;
        for (const auto& [code, offset] : mItems) {
            const char* value = begin + offset;
            switch (code) {
                case GrammerBase_cls::kXYZ:
                    std::memcpy(target.mPosition + 3 * particle, value, 12);
                    if (!IsFinite(target.mPosition + 3 * particle)) ++report.mBadRecords;
                    break;
                case GrammerBase_cls::kVelocity:
                    std::memcpy(target.mVelocity + 3 * particle, value, 12);
                    break;
                case GrammerBase_cls::kRadius:
                    target.mRadius[particle] = Load<float>(value);
                    break;
                case GrammerBase_cls::kID:
                    if (target.mID) target.mID[particle] = Load<int32_t>(value);
                    break;
                case GrammerBase_cls::kType:
                    target.mType[particle] = ParticleTarget_cls::ClampType(Load<int32_t>(value));
                    break;
                case GrammerBase_cls::kValue1:
                    target.mValue1[particle] = Load<float>(value);
                    break;
                default:
                    break;
            }
        }
    }
    report.mRecords = static_cast<int>(records);
    return report;
}
