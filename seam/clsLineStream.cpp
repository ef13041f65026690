#include "seam/clsLineStream.h"

#include <algorithm>

#include "seam/clsTextCoding.h"

bool LineStream_cls::ReadLine(std::string_view& line) {
    mLast = mNext;
    line = {};
    if (mNext >= mBytes.size()) return false;

    const size_t end = std::min(mBytes.find('\n', mNext), mBytes.size());
    line = std::string_view(mBytes).substr(mNext, std::min(end - mNext, kMaxLineLength));
    mNext = std::min(end + 1, mBytes.size());
    return true;
}

bool LineStream_cls::ReadLine(wxString& line) {
    std::string_view bytes;
    const bool read = ReadLine(bytes);
    line = FromBytes(std::string(bytes));
    return read;
}
