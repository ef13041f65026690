#!/usr/bin/env bash
# The demo film, 60 frames of 1280x720: wall time of a whole --render beside what its processor time would take
# were it spread evenly over all processors. No order of reading, drawing and compressing can be faster than that.
# usage: bench/film.sh      after ./run.sh has made the demo data; prints medians of 5
set -euo pipefail
cd "$(dirname "$0")/.."
project=demo/data-${PARTICLES:-100000}/galaxies.vhp
[ -f "$project" ] || { echo "no $project: start ./run.sh once" >&2; exit 1; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
TIMEFORMAT='%R %U %S'
for run in 1 2 3 4 5; do
    { time build/release/varnholt3 --no-config --quiet --frames 90:149 --render "$folder/f%04d.png" "$project"; } \
        2>>"$folder/times"
done
sort -n "$folder/times" | awk -v cores="$(nproc)" 'NR == 3 {
    even = ($2 + $3) / cores
    printf "60 frames: %.2f s; processor time / %d processors: %.2f s; ratio %.2f\n", $1, cores, even, $1 / even }'
