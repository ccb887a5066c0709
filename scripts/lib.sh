# Functions that the scripts share: they set up the machine and say what happens. Sourced, never run.
# shellcheck shell=bash

set -euo pipefail

root_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Packages that every build needs, and those that the command-line program and the tests need in addition.
build_packages=(g++ cmake ninja-build pkg-config)
tool_packages=(libgdal-dev libcli11-dev libcairo2-dev libxml2-dev nlohmann-json3-dev)
test_packages=(clang libgtest-dev librapidcheck-dev libgeos-dev libgmp-dev gdal-bin binutils python3 git
               doxygen clang-format clang-tidy shellcheck man-db abigail-tools)

say() {
    printf '\n== %s\n' "$*"
}

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# The version that everything bears. Its home is the header that applications read.
project_version() {
    sed -nE 's/.*PLCALC_VERSION "(.*)"/\1/p' "$root_dir/include/plcalc/version.h"
}

# Runs a command as root, directly or through sudo if that asks for no password.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo -n "$@"
    fi
}

# ensure_packages <package>...: installs the packages that are missing, from Debian or Ubuntu. Where that is not
# possible, it names them and stops.
ensure_packages() {
    local missing=() package
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "Not a Debian or Ubuntu machine: these packages, or what they are called here, must be present"
        printf '   %s\n' "$*"
        return
    fi
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    say "Installing ${missing[*]}"
    if [ "$(id -u)" != 0 ] && ! sudo -n true 2>/dev/null; then
        die "packages are missing and neither root nor sudo is at hand; install them first:
  apt-get install ${missing[*]}"
    fi
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}

# Clang with the run-time of its sanitizers and of libFuzzer. Depending on the release, that is a package of its own or
# a part of clang.
ensure_clang() {
    ensure_packages clang
    ! echo 'int main() {}' | clang++ -fsanitize=address,undefined -x c++ - -o /dev/null 2>/dev/null || return 0
    ensure_packages "libclang-rt-$(clang -dumpversion | cut -d. -f1)-dev"
}

# A Windows of its own for wine, which the caller removes with end_wine. It is to open no windows, put nothing into the
# user's menu, and install nothing.
begin_wine() {
    WINEPREFIX=$(mktemp -d)
    WINEDEBUG=-all
    WINEDLLOVERRIDES='winemenubuilder.exe=d;mscoree,mshtml='
    export WINEPREFIX WINEDEBUG WINEDLLOVERRIDES
    unset DISPLAY WAYLAND_DISPLAY
}

# A server outlives wine's programs.
end_wine() {
    wineserver -k || true
    rm -rf "$WINEPREFIX"
}

# build_preset <preset> [target...]: configures and builds it on as many cores as there are.
build_preset() {
    local preset=$1
    shift
    say "Configuring and building: $preset"
    mkdir -p "$root_dir/build"
    cmake --preset "$preset" >"$root_dir/build/$preset.log" 2>&1 || {
        cat "$root_dir/build/$preset.log" >&2
        die "configuring $preset failed"
    }
    local target_args=()
    [ $# -eq 0 ] || target_args=(--target "$@")
    cmake --build "$root_dir/build/$preset" -j "$(nproc)" "${target_args[@]}"
}

# build_target <name> <cmake argument...>: the libraries and the replay of the golden vectors, in build/targets/<name>.
build_target() {
    local dir=build/targets/$1
    mkdir -p "$dir"
    {
        cmake -G Ninja -S . -B "$dir" -DBUILD_SHARED_LIBS=OFF -DPLCALC_BUILD_TOOL=OFF -DPLCALC_BUILD_TESTS=OFF \
            -DPLCALC_BUILD_GOLDEN=ON -DPLCALC_WERROR=ON "${@:2}" && cmake --build "$dir" -j "$(nproc)"
    } >"$dir.log" 2>&1 || {
        cat "$dir.log" >&2
        die "$1 does not build"
    }
}
