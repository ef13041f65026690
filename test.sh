#!/usr/bin/env bash
# Installs what is missing, builds and runs every test.
# usage: ./test.sh           release, address and thread sanitizer, one after the other
#        ./test.sh PRESET    one of release, debug, asan, tsan
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p build
log=$PWD/build/test.log
. tools/packages.sh

presets=${1:-release asan tsan}
install_packages $test_packages

# The first report of a sanitizer fails its test. Drivers and GTK keep memory to the end of the process.
export ASAN_OPTIONS=detect_leaks=1:intercept_tls_get_addr=0
export LSAN_OPTIONS=suppressions=$PWD/tools/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
# The driver holds more locks at once than the deadlock detector counts; the program itself has none.
export TSAN_OPTIONS=suppressions=$PWD/tools/tsan.supp:halt_on_error=1:detect_deadlocks=0

for preset in $presets; do
    echo "== $preset: building (log: build/test.log)"
    cmake --preset "$preset" -DVARNHOLT_TESTS=ON >"$log" 2>&1 && cmake --build --preset "$preset" >>"$log" 2>&1 ||
        { tail -40 "$log"; fail "the $preset build (see above)"; }
    ctest --preset "$preset" -LE gui -j "$(nproc)" || fail "tests of the $preset build (see above)"
    # The toolkit's threads are not instrumented, and windows start none of ours: not under tsan. On a busy
    # machine the window manager may be late for a click: a second try.
    [ "$preset" = tsan ] || ctest --preset "$preset" -L gui --repeat until-pass:2 ||
        fail "window tests of the $preset build (see above)"
done
echo "OK: all tests of $presets passed"
