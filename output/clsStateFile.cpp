#include "output/clsStateFile.h"

#include <charconv>
#include <cstring>
#include <string>

#include "seam/clsOutputFile.h"

namespace {

/// The longest row: eight numbers of up to 16 characters.
constexpr size_t kMaxRow = 200;
constexpr size_t kPieceByte = 1 << 20;

/// "%.9g" in the "C" locale: nine digits bring every float back.
char* PutFloat(char* to, float value) {
    return std::to_chars(to, to + 32, static_cast<double>(value), std::chars_format::general, 9).ptr;
}

char* PutInteger(char* to, int value) {
    return std::to_chars(to, to + 16, value).ptr;
}

size_t PutRow(char* row, const ParticleState_cls& state, size_t i) {
    char* to = PutInteger(row, static_cast<int>(i));
    *to++ = ' ';
    to = PutInteger(to, state.mID ? state.mID[i] : 0);
    *to++ = ' ';
    to = PutInteger(to, state.mType[i]);
    for (const float value : {state.mPosition[3 * i], state.mPosition[3 * i + 1], state.mPosition[3 * i + 2],
                              state.mRadius[i], state.mValue1[i]}) {
        *to++ = ' ';
        to = PutFloat(to, value);
    }
    *to++ = '\n';
    return static_cast<size_t>(to - row);
}

size_t PutRecord(char* record, const ParticleState_cls& state, size_t i) {
    const int32_t id = state.mID ? state.mID[i] : 0;
    const int32_t type = state.mType[i];
    std::memcpy(record, state.mPosition + 3 * i, 12);
    std::memcpy(record + 12, state.mVelocity + 3 * i, 12);
    std::memcpy(record + 24, state.mRadius + i, 4);
    std::memcpy(record + 28, &id, 4);
    std::memcpy(record + 32, &type, 4);
    std::memcpy(record + 36, state.mValue1 + i, 4);
    return 40;
}

}  // namespace

wxString WriteParticleState(const wxString& path, const ParticleState_cls& state) {
    const bool binary = path.EndsWith(".bin");
    const auto stride = static_cast<size_t>(state.mStride);
    const auto count = static_cast<size_t>(state.mCount);
    OutputFile_cls file(path);
    if (binary) {
        const auto time = static_cast<float>(state.mTime);
        const auto written = static_cast<int32_t>((count + stride - 1) / stride);
        file.Write(&time, sizeof time);
        file.Write(&written, sizeof written);
    } else {
        file.Write("# index id type x y z radius value1\n");
    }
    std::string piece(kPieceByte, '\0');
    size_t used = 0;
    for (size_t i = 0; i < count; i += stride) {
        if (used + kMaxRow > piece.size()) {
            file.Write(piece.data(), used);
            used = 0;
        }
        char* to = piece.data() + used;
        used += binary ? PutRecord(to, state, i) : PutRow(to, state, i);
    }
    file.Write(piece.data(), used);
    file.Commit(OutputFile_cls::Sync::No);
    return file.GetError();
}
