#include "data/clsAsciiReader.h"

#include <limits>

#include "data/clsTypeWord.h"

namespace {

constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();

bool ReadFloats(TextCursor_cls* line, int count, float* values, float otherwise) {
    bool good = true;
    for (int i = 0; i < count; ++i) {
        if (line->ReadFloat(&values[i])) continue;
        values[i] = otherwise;
        good = false;
    }
    return good;
}

bool ReadInteger(TextCursor_cls* line, int32_t* value) {
    *value = 0;
    return line->ReadInteger(value);
}

}  // namespace

AsciiReader_cls::AsciiReader_cls(const GrammerBase_cls& grammer)
    : mCodes(grammer.GetBodyGrammer().begin(), grammer.GetBodyGrammer().end()) {}

BodyReport_cls AsciiReader_cls::Read(std::string_view text, int first,
                                     const ParticleTarget_cls& target) const {
    BodyReport_cls report;
    TextCursor_cls cursor(text);
    int particle = first;
    for (; particle < target.mCount && cursor.FindRecord(); ++particle) {
        if (!ReadRecord(&cursor, static_cast<size_t>(particle), target)) ++report.mBadRecords;
        cursor.SkipLine();
    }
    report.mRecords = particle - first;
    return report;
}

bool AsciiReader_cls::ReadRecord(TextCursor_cls* line, size_t particle,
                                 const ParticleTarget_cls& target) const {
    bool good = true;
    int32_t number = 0;
    for (const int code : mCodes) {
        switch (code) {
            case GrammerBase_cls::kXYZ:
                good &= ReadFloats(line, 3, target.mPosition + 3 * particle, kNotANumber);
                break;
            case GrammerBase_cls::kVelocity:
                good &= ReadFloats(line, 3, target.mVelocity + 3 * particle, 0.0F);
                break;
            case GrammerBase_cls::kRadius:
                good &= ReadFloats(line, 1, target.mRadius + particle, 0.0F);
                break;
            case GrammerBase_cls::kValue1:
                good &= ReadFloats(line, 1, target.mValue1 + particle, 0.0F);
                break;
            case GrammerBase_cls::kID:
                good &= ReadInteger(line, &number);
                if (target.mID) target.mID[particle] = number;
                break;
            case GrammerBase_cls::kType:
                good &= TypeWord_cls::Read(line, &number);
                target.mType[particle] = ParticleTarget_cls::ClampType(number);
                break;
            default:
                for (unsigned int i = 0; i < GrammerBase_cls::BodyUnits(code); ++i) line->SkipWord();
                break;
        }
    }
    return good;
}

int AsciiReader_cls::CountRecords(std::string_view text, int most) {
    TextCursor_cls cursor(text);
    int records = 0;
    for (; records < most && cursor.FindRecord(); ++records) cursor.SkipLine();
    return records;
}
