#include "output/clsStateFile.h"

#include <charconv>
#include <span>
#include <string>

#include "output/clsDataExporter.h"
#include "seam/clsOutputFile.h"

namespace {

constexpr size_t kPieceByte = 1 << 20;

/// Puts values one behind the other, as words of a line or as bytes in the machine's order.
class Row_cls {
  public:
    Row_cls(std::string& to, bool text) : mTo(to), mText(text), mBegin(to.size()) {}

    /// "%.9g" in the "C" locale: nine digits bring every float back.
    void Put(float value) {
        char word[32];
        if (mText)
            PutWord(word, std::to_chars(word, word + sizeof word, static_cast<double>(value),
                                        std::chars_format::general, 9)
                              .ptr);
        else
            PutBytes(&value);
    }
    void Put(int32_t value) {
        char word[16];
        if (mText)
            PutWord(word, std::to_chars(word, word + sizeof word, value).ptr);
        else
            PutBytes(&value);
    }
    void PutVector(const float* vector) {
        for (int i = 0; i < 3; ++i) Put(vector[i]);
    }
    void PutZeros(unsigned int count) {
        for (unsigned int i = 0; i < count; ++i) Put(int32_t{0});
    }
    void End() {
        if (mText) mTo += '\n';
        mBegin = mTo.size();
    }
    /// Drops what was put, when it has been written.
    void Restart() {
        mTo.clear();
        mBegin = 0;
    }

  private:
    void PutWord(const char* begin, const char* end) {
        if (mTo.size() > mBegin) mTo += ' ';
        mTo.append(begin, end);
    }
    void PutBytes(const void* value) { mTo.append(static_cast<const char*>(value), 4); }

    std::string& mTo;
    const bool mText;
    size_t mBegin;
};

int32_t IdOf(const ParticleState_cls& state, size_t i) {
    return state.mID ? state.mID[i] : 0;
}

/// The columns of text that nobody has chosen a layout for.
void PutColumns(Row_cls& row, const ParticleState_cls& state, size_t i) {
    row.Put(static_cast<int32_t>(i));
    row.Put(IdOf(state, i));
    row.Put(int32_t{state.mType[i]});
    row.PutVector(state.mPosition + 3 * i);
    row.Put(state.mRadius[i]);
    row.Put(state.mValue1[i]);
    row.End();
}

void PutRecord(Row_cls& row, const ParticleState_cls& state, size_t i, std::span<const int> codes) {
    for (const int code : codes) {
        switch (code) {
            case GrammerBase_cls::kXYZ:
                row.PutVector(state.mPosition + 3 * i);
                break;
            case GrammerBase_cls::kVelocity:
                row.PutVector(state.mVelocity + 3 * i);
                break;
            case GrammerBase_cls::kRadius:
                row.Put(state.mRadius[i]);
                break;
            case GrammerBase_cls::kID:
                row.Put(IdOf(state, i));
                break;
            case GrammerBase_cls::kType:
                row.Put(int32_t{state.mType[i]});
                break;
            case GrammerBase_cls::kValue1:
                row.Put(state.mValue1[i]);
                break;
            default:
                row.PutZeros(GrammerBase_cls::BodyUnits(code));
        }
    }
    row.End();
}

/// One value a line in text.
void PutHeader(std::string& to, bool text, double time, int32_t count, std::span<const int> codes) {
    Row_cls row(to, text);
    for (const int code : codes) {
        if (code == GrammerBase_cls::kTime) row.Put(static_cast<float>(time));
        if (code == GrammerBase_cls::kNumber) row.Put(count);
        const bool value = code == GrammerBase_cls::kTime || code == GrammerBase_cls::kNumber;
        for (unsigned int i = 0; i < GrammerBase_cls::HeadUnits(code); ++i) {
            if (!value) row.PutZeros(1);
            row.End();
        }
    }
}

}  // namespace

wxString WriteParticleState(const wxString& path, const ParticleState_cls& state,
                            const DataExporter_cls& exporter) {
    const bool text = exporter.IsText() || !path.EndsWith(".bin");
    const bool titled = text && exporter.IsDefault();
    const auto stride = static_cast<size_t>(state.mStride);
    const auto count = static_cast<size_t>(state.mCount);
    const std::span<const int> codes = exporter.GetBodyGrammer();

    OutputFile_cls file(path);
    std::string piece;
    if (titled)
        piece = "# index id type x y z radius value1\n";
    else
        PutHeader(piece, text, state.mTime, static_cast<int32_t>((count + stride - 1) / stride),
                  exporter.GetHeaderGrammer());
    Row_cls row(piece, text);
    for (size_t i = 0; i < count; i += stride) {
        if (titled)
            PutColumns(row, state, i);
        else
            PutRecord(row, state, i, codes);
        if (piece.size() < kPieceByte) continue;
        file.Write(piece);
        row.Restart();
    }
    file.Write(piece);
    file.Commit(OutputFile_cls::Sync::No);
    return file.GetError();
}
