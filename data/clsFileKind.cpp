#include "data/clsFileKind.h"

#include "data/clsBinaryFile.h"
#include "data/clsColumnFile.h"
#include "data/clsLammpsDump.h"
#include "data/clsLayoutHint.h"
#include "data/clsXyzFile.h"

namespace {

/// Text that is told by so much of it is text.
constexpr size_t kTextByte = 4096;

}  // namespace

FileKind_cls FileKind_cls::Recognise(const FileStart_cls& start) {
    FileKind_cls kind;
    if (start.mBytes.empty()) {
        kind.mWords = "the file is empty";
        return kind;
    }
    const bool isText = LooksLikeText(std::string_view(start.mBytes).substr(0, kTextByte));
    if (!isText) return RecogniseBinary(start);
    if (auto dump = RecogniseLammpsDump(start)) return *dump;
    if (auto xyz = RecogniseXyz(start)) return *xyz;
    return RecogniseColumns(start);
}
