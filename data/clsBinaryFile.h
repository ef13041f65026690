#pragma once

#include "data/clsFileKind.h"

/// Binary files: the 40-byte record with time and count before it, and Tipsy files of one kind of particle,
/// both told by figures of their headers that agree with the file's size. Of other files the words say the
/// number of bytes, and when the figures agree in the other byte order.
FileKind_cls RecogniseBinary(const FileStart_cls& start);
