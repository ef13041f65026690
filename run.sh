#!/usr/bin/env bash
# Installs what is missing, builds, makes the demo data once and shows the demo: in the window, or, where there
# is no display, as pictures.
# usage: ./run.sh            (numbers of particles and frames can be set: PARTICLES=20000 FRAMES=0:59 ./run.sh)
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p build
log=$PWD/build/run.log
. tools/packages.sh

install_packages $build_packages

echo "building (log: build/run.log)"
cmake --preset release -DVARNHOLT_TESTS=OFF -DVARNHOLT_BENCH=OFF >"$log" 2>&1 &&
    cmake --build --preset release >>"$log" 2>&1 || { tail -30 "$log"; fail "the build (see above)"; }

particles=${PARTICLES:-100000}
data=demo/data-$particles
if [ ! -f "$data/complete" ]; then
    echo "making the demo data: two galaxies pass ($particles particles, 101 snapshots)"
    build/release/examples/makegalaxies --particles "$particles" "$data" || fail "the demo data"
    touch "$data/complete"
fi
# Beside its data, which it names without a folder.
cp examples/galaxies.vhp "$data/galaxies.vhp"

if [ -n "${DISPLAY:-}" ]; then
    build/release/varnholt3 --play "$data/galaxies.vhp" || fail "the window (without DISPLAY set, pictures are made)"
    echo "OK"
    exit 0
fi
pictures=demo/pictures
mkdir -p "$pictures"
echo "no display: drawing the demo film into pictures"
build/release/varnholt3 --no-config --quiet --render "$pictures/galaxies%04d.png" --frames "${FRAMES:-0:239}" \
    "$data/galaxies.vhp" || fail "the pictures"
echo "OK: the demo's pictures are in $PWD/$pictures"
