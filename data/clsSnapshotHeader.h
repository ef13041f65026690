#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "data/clsGrammerBase.h"

/// What the header of one snapshot file says. Plain functions on bytes: no files, no threads.
struct SnapshotHeader_cls {
    std::optional<double> mTime;    ///< empty when the grammar has no time item
    bool mTimeKnown = true;         ///< false: there is a time item, but not a finite number in it
    std::optional<int> mNumber;     ///< empty when the grammar has no number item
    unsigned int mBytesWanted = 0;  ///< binary: size of the header
    unsigned int mBytesThere = 0;   ///< binary: what the file holds of it
    bool mComplete = true;          ///< false: the file ends inside the header, or an item is no number
    int mBadLine = 0;               ///< text: the first line, from 1, that is missing or no number; 0: none

    static SnapshotHeader_cls FromBinary(std::span<const char> bytes, const GrammerBase_cls& grammer);
    /// One line is taken for each code, also for the dummies that count 3 and 10 lines: the grammar's line
    /// count and this reader differ on purpose, users' grammars are written for it.
    static SnapshotHeader_cls FromText(std::string_view text, const GrammerBase_cls& grammer);

    /// For the user: "time 0.5, 2048 particles".
    wxString Describe() const;
};

/// The start of a file without the byte-order mark that editors of other systems put there.
std::string_view WithoutByteOrderMark(std::string_view text);
/// Cuts the next line off the text: without its line feed and a carriage return before it.
std::string_view TakeLine(std::string_view* text);
