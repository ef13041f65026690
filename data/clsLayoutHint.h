#pragma once

#include <wx/string.h>

#include <string_view>

#include "data/clsGrammerBase.h"
#include "seam/clsInputFile.h"

/// Whether the start of a file is made of text: bytes that no text holds are missing there.
bool LooksLikeText(std::string_view start);

/// What a binary file that does not fit its layout probably is, as words to put behind the message: text, or
/// bytes of the other order. Empty when nothing speaks for either.
wxString GuessLayout(const InputFile_cls& file, const GrammerBase_cls& grammer, int number);

/// What the file holds behind its particles, as words ("2400 bytes", "12 lines"): several steps in one file,
/// or another layout. Empty when there is nothing. Reads text files whole.
wxString DescribeLeftover(const InputFile_cls& file, const GrammerBase_cls& grammer, int particles);
