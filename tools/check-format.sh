#!/usr/bin/env bash
# Fails when a source is not laid out as .clang-format says.
cd "$(dirname "$0")/.." || exit 1
find SRC seam timeline data interp render scene output pov gui core tests bench examples \
    \( -name '*.h' -o -name '*.cpp' \) -print0 2>/dev/null | xargs -0 clang-format --dry-run -Werror
