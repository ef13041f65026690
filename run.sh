#!/usr/bin/env bash
# Installs what is missing, builds, makes the demo data once and shows them.
# usage: ./run.sh            (numbers of particles and frames can be set: PARTICLES=20000 FRAMES=0:10 ./run.sh)
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

pictures=demo/pictures
mkdir -p "$pictures"
build/release/varnholt3 --no-config --quiet --render "$pictures/galaxies%04d.png" --frames "${FRAMES:-0:100}" \
    "$data/galaxies0000.dat" || fail "the pictures"
echo "OK: the demo's pictures are in $PWD/$pictures"
