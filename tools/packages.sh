# Sourced by run.sh and test.sh: the Debian packages that each needs.

build_packages="g++ cmake ninja-build ccache libwxgtk3.2-dev libgl-dev libegl-dev libglu1-mesa-dev libx11-dev
                libegl1 libegl-mesa0 libgl1-mesa-dri"
test_packages="$build_packages libgtest-dev libbenchmark-dev clang-format git lammps povray locales ffmpeg
               xvfb openbox libxtst-dev"

# Installs what is missing of the packages named, as root or with sudo.
install_packages() {
    local missing=""
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q "^install ok" || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    local as_root=""
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    echo "installing:$missing"
    if ! { $as_root apt-get update -qq &&
           $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing; } \
           >"$log" 2>&1; then
        tail -20 "$log"
        fail "packages could not be installed (see above)"
    fi
}

fail() {
    echo "FAILED: $*" >&2
    exit 1
}
