#pragma once

#include "data/clsTextCursor.h"

/// The particle type in a text file: a whole number, or a name.
/// Names of chemical elements, in capitals or not and with digits behind or not, stand for their atomic
/// number modulo 4, the number of types that have attributes of their own: H, C, N and O are 1, 2, 3 and 0.
/// So a name gives the same type in every file and to every reading thread. Other names are type 0. Plain
/// functions on memory.
class TypeWord_cls {
  public:
    /// Reads the next word of the line and goes behind it. False, and type 0, when there is none or it is
    /// neither a whole number nor begins with a letter.
    static bool Read(TextCursor_cls* line, int32_t* type);
    /// Of a name.
    static int32_t TypeOf(std::string_view name);
};
