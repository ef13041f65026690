#!/usr/bin/env bash
# Writes scene/clsBitmapFontGlyphs.inc anew. Needed only when the set of glyphs changes.
# Needs freeglut3-dev, libgl-dev and xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
g++ -std=c++20 -O1 -Wall -Wextra -DGL_GLEXT_PROTOTYPES tools/bitmapfonts.cpp -o "$work/bitmapfonts" -lglut -lGL
xvfb-run -a "$work/bitmapfonts" >"$work/glyphs"
mv "$work/glyphs" scene/clsBitmapFontGlyphs.inc
