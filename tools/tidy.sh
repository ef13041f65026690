#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the sources named, or over all of ours.
# usage: tools/tidy.sh [FILE...]
cd "$(dirname "$0")/.." || exit 1
# A tree of its own: clang-tidy cannot read g++'s precompiled headers.
cmake -B build/tidy -G Ninja -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DVARNHOLT_TESTS=OFF -DVARNHOLT_BENCH=OFF \
    >build/tidy.log 2>&1 || { cat build/tidy.log; exit 1; }
[ $# -gt 0 ] || mapfile -t files < <(find SRC seam timeline data interp render scene output pov gui core -name '*.cpp' 2>/dev/null)
printf '%s\0' "${@:-${files[@]}}" | xargs -0 -P 2 -n 4 clang-tidy -p build/tidy --quiet 2>/dev/null
