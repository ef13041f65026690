#pragma once

#include <wx/string.h>

#include <vector>

#include "data/clsFileStart.h"
#include "data/clsGrammerBase.h"

/// The first records of a file as a grammar decodes them, and the first thing that does not fit.
/// Decodes by the rules of the readers: what is shown is what will be read. Looks at the file's first
/// megabyte only; a count that a longer text file does not keep shows when it is read.
struct RecordPreview_cls {
    static constexpr size_t kMostRecords = 10;

    struct Cell {
        wxString text;
        bool good = true;  ///< false: missing, no number or not finite
    };

    static RecordPreview_cls Make(const FileStart_cls& start, const GrammerBase_cls& grammer);

    std::vector<wxString> mColumns;        ///< names of the values of a record
    std::vector<std::vector<Cell>> mRows;  ///< at most kMostRecords
    wxString mHeader;                      ///< what the header says, e.g. "time 0.5, 2048 particles"
    wxString mSize;                        ///< the file's size beside what the header's count takes
    wxString mMisfit;                      ///< with the byte or line it stands at; empty: everything fits
};
