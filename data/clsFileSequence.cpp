#include "data/clsFileSequence.h"

#include "data/clsSplitPath.h"
#include "seam/clsInputFile.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr int kMaxPatternDigits = 5;

wxString Pattern(int digits) {
    return wxString::Format("%%0%dd", digits);
}

wxString PaddedNumber(long long number, int digits) {
    const wxString text = wxString::Format("%lld", number);
    const auto width = static_cast<size_t>(digits);
    return text.length() < width ? wxString('0', width - text.length()) + text : text;
}

}  // namespace

FileSequence_cls::FileSequence_cls(const wxString& path) {
    Set(path);
}

void FileSequence_cls::Set(const wxString& path) {
    mPath = path;
    if (path.empty()) return;
    mCount = -1;

    for (int digits = 1; digits <= kMaxPatternDigits; ++digits) {
        const size_t position = path.find(Pattern(digits));
        if (position == wxString::npos) continue;
        mDigits = digits;
        mStart = 0;
        mFormat = path;
        mPrefix = path.substr(0, position);
        mSuffix = SplitPath_cls(path).mExtension;
        return;
    }
    InitFormat();
}

void FileSequence_cls::InitFormat() {
    const SplitPath_cls split(mPath);
    const wxString& stem = split.mStem;

    size_t begin = stem.length();
    if (stem.length() <= kLongestName) {
        while (begin > 0 && stem[begin - 1] >= '0' && stem[begin - 1] <= '9') --begin;
    }
    if (begin == stem.length()) {
        mStart = 0;
        mDigits = -1;
        mPrefix = stem;
        mFormat = mPath;
        return;
    }
    // The leading digits of a number that does not fit 32 bits belong to the prefix.
    while (!stem.substr(begin).ToInt(&mStart, 10)) ++begin;
    mDigits = static_cast<int>(stem.length() - begin);
    mPrefix = stem.substr(0, begin);
    mSuffix = split.mExtension;
    mFormat = mPrefix + Pattern(mDigits) + mSuffix;
}

bool FileSequence_cls::IsMemberThere(int offset) const {
    return InputFile_cls::CanOpen(GetModifiedStr(offset));
}

void FileSequence_cls::CalcMaxOffset() {
    if (!IsNumbered()) {
        mCount = 1;
        return;
    }
    mCount = 0;
    if (!IsMemberThere(0)) {
        UserMessage_cls::Tell("Can not open file",
                              "FileSequence_cls::CalcMaxOffset\n" + GetModifiedStr(0) + "\nFile open fails");
        return;
    }
    int base = 0;
    for (int step = 100; step >= 1; step /= 10) {
        while (IsMemberThere(base + step)) base += step;
    }
    mCount = base + 1;
}

wxString FileSequence_cls::GetModifiedStr(int offset, Side side) const {
    const wxString letter = side == Side::Left ? "L" : side == Side::Right ? "R" : "";
    if (!IsNumbered()) {
        const SplitPath_cls split(mPath);
        return split.mStem + letter + split.mExtension;
    }
    // The number is put in by hand: a "%" elsewhere in the user's name is no conversion.
    const size_t begin = mPrefix.length();
    const size_t end = begin + Pattern(mDigits).length();
    return mPrefix + letter + PaddedNumber(static_cast<long long>(mStart) + offset, mDigits) +
           mFormat.substr(end);
}

wxString FileSequence_cls::GetInfoStr() const {
    if (!IsNumbered()) return mPath;
    const long long last = static_cast<long long>(mStart) + mCount - 1;
    return mPath + wxString::Format(" (%d-%lld)", mStart, last);
}

void FileSequence_cls::AppendDefaultSequenceTag() {
    Set(mPrefix + Pattern(4) + mSuffix);
}
