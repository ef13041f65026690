#include "data/clsLinePieces.h"

#include <algorithm>
#include <climits>

#include "data/clsAsciiReader.h"
#include "data/clsSnapshotHeader.h"

namespace {

constexpr size_t kTextPieceByte = 262144;

}  // namespace

bool LinePieces_cls::Next(std::vector<char>* buffer, std::string_view* lines) {
    const bool isStart = mPosition == 0;
    size_t filled = mRest.size();
    buffer->resize(std::max({buffer->size(), kTextPieceByte, 2 * filled}));
    std::ranges::copy(mRest, buffer->begin());
    size_t end = 0;
    while (end == 0 && !mEnded) {
        if (filled == buffer->size()) buffer->resize(2 * filled);
        char* place = buffer->data() + filled;
        const size_t room = buffer->size() - filled;
        const size_t got = mFile.ReadAt(mPosition, place, room, &mFailure);
        mEnded = got < room;
        mPosition += got;
        filled += got;
        const size_t lineFeed = std::string_view(place, got).rfind('\n');
        if (lineFeed != std::string_view::npos) end = filled - got + lineFeed + 1;
    }
    // The last line needs no line feed; one that a read error has cut is no line.
    if (mEnded && mFailure.empty()) end = filled;
    mRest.assign(buffer->data() + end, filled - end);

    *lines = {buffer->data(), end};
    if (isStart) *lines = WithoutByteOrderMark(*lines);
    for (; mLinesBefore > 0 && !lines->empty(); --mLinesBefore) TakeLine(lines);
    return end > 0;
}

int LinePieces_cls::CountRecords(const InputFile_cls& file, unsigned int linesBefore) {
    LinePieces_cls pieces(file, linesBefore);
    std::vector<char> buffer;
    std::string_view lines;
    int records = 0;
    while (pieces.Next(&buffer, &lines)) records += AsciiReader_cls::CountRecords(lines, INT_MAX - records);
    return records;
}
