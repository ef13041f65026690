#pragma once

#include <optional>

#include "data/clsFileKind.h"

/// An XYZ file: a count, a comment, then a word and three coordinates a line. The comment of the extended
/// form may name the columns ("Properties=species:S:1:pos:R:3:vel:R:3") and the box ("Lattice="). Empty when
/// the file is none.
std::optional<FileKind_cls> RecogniseXyz(const FileStart_cls& start);
