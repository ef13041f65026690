#include "data/clsFileStart.h"

#include <algorithm>

FileStart_cls::FileStart_cls(const InputFile_cls& file) : mFileByte(file.GetSize()) {
    mBytes.resize(static_cast<size_t>(std::min<uint64_t>(mFileByte, kMostByte)));
    mBytes.resize(file.ReadAt(0, mBytes.data(), mBytes.size()));
}

std::string_view FileStart_cls::WholeLines() const {
    const std::string_view text = mBytes;
    return IsWhole() ? text : text.substr(0, text.rfind('\n') + 1);
}
