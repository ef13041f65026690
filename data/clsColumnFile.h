#pragma once

#include "data/clsFileKind.h"

/// A text file of columns. Names of columns in a line before the numbers ("# id x y z", "x,y,z") give the
/// layout; without, their number does: three are x y z, six have velocities behind. One line with a single
/// number before them is the count, two are time and count.
FileKind_cls RecogniseColumns(const FileStart_cls& start);
