#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The words of a line, separated by blanks, tabs and commas.
std::vector<std::string> SplitWords(std::string_view line);

/// Body codes for columns that a file names ("id type x y z vx vy vz c_pe"), in their order. Columns of no
/// use become dummies; value1 is the first column that is some other number, names of computed values first.
/// Columns behind the last useful one are left out, and the list has at most 16 codes.
/// Empty when no positions are among them: x, y and z must stand side by side.
std::vector<int> CodesOfColumns(const std::vector<std::string>& names);
