# Sourced by run and test: installs what is missing on Debian and builds a preset.

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# need PACKAGE…: installs the packages that are not there yet.
need() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    command -v apt-get >/dev/null || fail "Missing: ${missing[*]}. This is no Debian system: install their counterparts by hand."
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "Missing: ${missing[*]}. Install them as root: apt-get install ${missing[*]}"
        root=(sudo)
    fi
    say "Installing ${missing[*]} ..."
    "${root[@]}" apt-get update -qq || fail "apt-get update failed: is the network up?"
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
        fail "apt-get could not install ${missing[*]}."
}

# Objects are shared between copies of the project: paths count from where it lies.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# build PRESET [cmake options]: configures and builds build/PRESET.
build() {
    local preset=$1
    shift
    say "Building $preset ..."
    cmake --preset "$preset" "$@" >build/configure.log 2>&1 || {
        cat build/configure.log >&2
        fail "The build of $preset could not be configured."
    }
    cmake --build --preset "$preset" || fail "The build of $preset failed."
}

buildPackages=(g++ cmake ninja-build ccache)
desktopPackages=(qt6-base-dev qt6-svg-dev libqt6svg6 fonts-dejavu-core)
testPackages=(libgtest-dev libbenchmark-dev nlohmann-json3-dev clang libclang-rt-14-dev clang-format-14 locales
    xvfb xauth openbox xdotool x11-utils imagemagick xclip poppler-utils desktop-file-utils appstream)
mkdir -p build
