#include "data/clsTextBody.h"

#include "seam/clsClock.h"

namespace {

constexpr int kRingPeriodMs = 2;
constexpr int kParserPeriodMs = 3;

/// Sets the flag when the scope is left, by an exception too.
struct FlagAtEnd {
    std::atomic<bool>& flag;
    ~FlagAtEnd() { flag.store(true, std::memory_order_release); }
};

}  // namespace

int TextBody_cls::ReadPieces() {
    const int records = ReadAllPieces();
    while (ParseNextPiece()) {
    }
    return records;
}

int TextBody_cls::ReadAllPieces() {
    const FlagAtEnd allRead{mIsAllRead};
    int records = 0;
    for (int number = 0; records < mTarget.mCount; ++number) {
        Piece& piece = PlaceOf(number);
        while (!piece.isFree.load(std::memory_order_acquire)) {
            if (!ParseNextPiece()) PollUntil(piece.isFree, kRingPeriodMs);
        }
        if (GbThreadReaderAbandoned.load(std::memory_order_relaxed)) break;
        if (!mLines.Next(&piece.bytes, &piece.lines)) break;
        piece.first = records;
        piece.records = AsciiReader_cls::CountRecords(piece.lines, mTarget.mCount - records);
        records += piece.records;
        piece.isFree.store(false, std::memory_order_relaxed);
        mRead.store(number + 1, std::memory_order_release);
    }
    return records;
}

void TextBody_cls::ParsePieces() {
    struct Round {
        bool parsed = true;
        bool allRead = false;
    };
    for (Round round; round.parsed;) {
        PollUntil(
            [this, &round] {
                // Asked first: a piece handed over before the end is then still found.
                round.allRead = mIsAllRead.load(std::memory_order_acquire);
                round.parsed = ParseNextPiece();
                return round.parsed || round.allRead;
            },
            kParserPeriodMs);
    }
}

bool TextBody_cls::ParseNextPiece() {
    int number = mTaken.load(std::memory_order_relaxed);
    do {
        if (number >= mRead.load(std::memory_order_acquire)) return false;
    } while (!mTaken.compare_exchange_weak(number, number + 1, std::memory_order_relaxed));

    Piece& piece = PlaceOf(number);
    ParticleTarget_cls range = mTarget;
    range.mCount = piece.first + piece.records;
    const BodyReport_cls report = mReader.Read(piece.lines, piece.first, range);
    mAdjuster.DoAdjusting(mTarget, piece.first, piece.records);
    mBadRecords.fetch_add(report.mBadRecords, std::memory_order_relaxed);
    mProgress.Add(piece.records);
    piece.isFree.store(true, std::memory_order_release);
    return true;
}
