#pragma once

#include <optional>
#include <string_view>

#include "data/clsFileKind.h"

/// A text dump of LAMMPS, told by the "ITEM:" line it begins with. The settings follow its header: lines as
/// they stand there, the box with its periodic sides, and the columns that "ITEM: ATOMS" names.
/// Empty when the text does not begin so. Without usable positions there is no preset.
std::optional<FileKind_cls> RecogniseLammpsDump(const FileStart_cls& start);

/// The line that every time step of such a dump begins with; empty when it is no dump. Units stand once,
/// before the first step, and belong to none.
std::string_view LammpsStepLine(std::string_view text);
