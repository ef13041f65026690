#include "data/clsTextPreview.h"

#include <algorithm>
#include <array>

#include "data/clsAsciiReader.h"
#include "data/clsLayoutHint.h"
#include "data/clsParticleTarget.h"
#include "data/clsSnapshotHeader.h"
#include "data/clsTextCursor.h"
#include "data/clsTypeWord.h"
#include "seam/clsTextCoding.h"

namespace {

using Cell = RecordPreview_cls::Cell;

/// Longer words are cut where they are shown.
constexpr size_t kShownByte = 40;

wxString Shown(std::string_view word) {
    const wxString text = FromBytes(std::string(word.substr(0, kShownByte)));
    return word.size() > kShownByte ? text + "..." : text;
}

/// Decodes one line; the first misfit, if there is one, goes into the words.
std::vector<Cell> DecodeRecord(TextCursor_cls* line, const GrammerBase_cls& grammer, wxString* misfit) {
    std::vector<Cell> cells;
    for (const int code : grammer.GetBodyGrammer()) {
        for (unsigned int i = 0; i < GrammerBase_cls::BodyUnits(code); ++i) {
            TextCursor_cls before = *line;
            const std::string_view word = before.TakeWord();
            Cell cell{Shown(word)};
            float real = 0.0F;
            int32_t whole = 0;
            switch (code) {
                case GrammerBase_cls::kID:
                    cell.good = line->ReadInteger(&whole);
                    break;
                case GrammerBase_cls::kType:
                    cell.good = TypeWord_cls::Read(line, &whole);
                    whole = ParticleTarget_cls::ClampType(whole);
                    if (cell.good && cell.text != wxString::Format("%d", whole))
                        cell.text = wxString::Format("%d (from %s)", whole, cell.text);
                    break;
                case GrammerBase_cls::kDummy:
                case GrammerBase_cls::kDummy3:
                case GrammerBase_cls::kDummy10:
                    line->SkipWord();
                    break;
                default:
                    cell.good = line->ReadFloat(&real);
            }
            if (!cell.good && misfit->empty()) {
                const wxString name = GrammerBase_cls::BodyName(code);
                *misfit = word.empty() ? "the line ends before " + name
                                       : "\"" + Shown(word) + "\" is no number for " + name;
            }
            cells.push_back(cell);
        }
    }
    return cells;
}

/// The lines behind the header.
std::string_view BodyOf(std::string_view text, unsigned int headerLines) {
    for (unsigned int i = 0; i < headerLines && !text.empty(); ++i) TakeLine(&text);
    return text;
}

/// Goes through the records of the text. Only those that are shown, or do not fit, are taken apart.
class Walk {
  public:
    Walk(std::string_view text, const GrammerBase_cls& grammer)
        : mGrammer(grammer),
          mBody(BodyOf(text, grammer.GetHeaderLine())),
          mCursor(mBody),
          mReader(grammer),
          mLine(grammer.GetHeaderLine() + 1),
          mCounted(mBody.data()) {}

    bool Next() { return mCursor.FindRecord(); }
    std::vector<Cell> Decode() {
        wxString words;
        const long long line = CountLine();
        auto cells = DecodeRecord(&mCursor, mGrammer, &words);
        if (!words.empty() && mMisfit.empty()) mMisfit = wxString::Format("line %lld: ", line) + words;
        mCursor.SkipLine();
        return cells;
    }
    void Check() {
        const char* position = mCursor.GetPosition();
        TextCursor_cls behind = mCursor;
        behind.SkipLine();
        if (!mMisfit.empty() || IsGood({position, behind.GetPosition()})) {
            mCursor = behind;
        } else {
            Decode();
        }
    }
    /// Number of the line it stands at, from 1.
    long long CountLine() {
        mLine += std::count(mCounted, mCursor.GetPosition(), '\n');
        mCounted = mCursor.GetPosition();
        return mLine;
    }
    wxString Word() {
        TextCursor_cls here = mCursor;
        return Shown(here.TakeWord());
    }
    size_t ByteBehindHeader() const { return static_cast<size_t>(mCursor.GetPosition() - mBody.data()); }
    const wxString& GetMisfit() const { return mMisfit; }

  private:
    bool IsGood(std::string_view line) {
        const ParticleTarget_cls target{.mCount = 1,
                                        .mPosition = mVector.data(),
                                        .mVelocity = mVector.data(),
                                        .mRadius = mVector.data(),
                                        .mValue1 = mVector.data(),
                                        .mType = &mType};
        return mReader.Read(line, 0, target).mBadRecords == 0;
    }

    const GrammerBase_cls& mGrammer;
    std::string_view mBody;
    TextCursor_cls mCursor;
    AsciiReader_cls mReader;
    std::array<float, 3> mVector{};
    uint8_t mType = 0;
    long long mLine;
    const char* mCounted;
    wxString mMisfit;
};

void CompareCount(const FileStart_cls& start, long long records, int number, Walk* walk,
                  RecordPreview_cls* preview) {
    if (records == number) {
        preview->mSize += wxString::Format("; %lld lines of particles, as the header says", records);
        if (walk->Next()) {
            preview->mMisfit =
                wxString::Format("line %lld: the file goes on behind the particles: ", walk->CountLine()) +
                walk->Word();
        }
    } else if (start.IsWhole()) {
        preview->mMisfit = wxString::Format("line %lld: the file ends after %lld of %d particles",
                                            walk->CountLine(), records, number);
    } else if (records > 0) {
        const double there = static_cast<double>(start.mFileByte) * static_cast<double>(records) /
                             static_cast<double>(walk->ByteBehindHeader());
        preview->mSize +=
            wxString::Format("; about %.3g lines of particles, the header says %d", there, number);
    }
}

}  // namespace

void PreviewText(const FileStart_cls& start, const GrammerBase_cls& grammer, RecordPreview_cls* preview) {
    preview->mSize = wxString::Format("%llu bytes", static_cast<unsigned long long>(start.mFileByte));
    const std::string_view text = WithoutByteOrderMark(start.WholeLines());
    if (!LooksLikeText(text.substr(0, 4096))) {
        preview->mMisfit = "byte 0: this is no text";
        return;
    }
    const SnapshotHeader_cls header = SnapshotHeader_cls::FromText(text, grammer);
    preview->mHeader = header.Describe();
    if (!header.mComplete) {
        preview->mMisfit = wxString::Format("line %d: no number, where the header has one", header.mBadLine);
        return;
    }
    if (header.mNumber && *header.mNumber < 0) {
        preview->mMisfit = wxString::Format("the header's count is %d", *header.mNumber);
        return;
    }
    Walk walk(text, grammer);
    const long long wanted = header.mNumber ? *header.mNumber : static_cast<long long>(text.size());
    long long records = 0;
    for (; records < wanted && walk.Next(); ++records) {
        if (preview->mRows.size() < RecordPreview_cls::kMostRecords) {
            preview->mRows.push_back(walk.Decode());
        } else {
            walk.Check();
        }
    }
    if (header.mNumber) {
        CompareCount(start, records, *header.mNumber, &walk, preview);
    } else {
        preview->mSize +=
            start.IsWhole() ? wxString::Format("; %lld lines of particles", records) : wxString();
    }
    if (!walk.GetMisfit().empty()) preview->mMisfit = walk.GetMisfit();
    if (preview->mMisfit.empty() && records == 0 && wanted > 0)
        preview->mMisfit = wxString::Format("line %lld: no particles behind the header", walk.CountLine());
}
