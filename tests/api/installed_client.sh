#!/usr/bin/env bash
# installed_client.sh <cmake> <build folder> <source folder> <C++ compiler> <extra C++ flags>: installs the
# package, moves it elsewhere, and builds and runs outside clients: of the library and of the layer above it, each
# through CMake and through pkg-config, and one that has the companion alone.
set -euo pipefail

cmake=$1 build=$2 source=$3 cxx=$4 flags=$5
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for component in plcalc plutil plparcel; do
    "$cmake" --install "$build" --prefix "$work/first" --component "$component" >/dev/null
done
mv "$work/first" "$work/moved" # the package must not remember where it was installed
prefix=$work/moved
example=$source/examples/proven_division.cpp

# build_client <client> <prefix>
build_client() {
    {
        "$cmake" -G Ninja -S "$source/tests/api/$1" -B "$work/$1" -DCMAKE_PREFIX_PATH="$2" -DEXAMPLE="$example" \
            -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$flags" &&
            "$cmake" --build "$work/$1"
    } >"$work/log" 2>&1 || {
        cat "$work/log" >&2
        exit 1
    }
}

"$cmake" --install "$build" --prefix "$work/companion" --component plutil >/dev/null
build_client companion_client "$work/companion"
got=$("$work/companion_client/companion_client")
[ "$got" = '3 1 6 50.0' ] || { echo "the companion alone: got $got, wanted 3 1 6 50.0" >&2; exit 1; }

build_client client "$prefix"
want='18414.82'
by_cmake=$("$work/client/client")

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name plcalc.pc)")
export PKG_CONFIG_PATH
libdir=$(dirname "$PKG_CONFIG_PATH")
# shellcheck disable=SC2046,SC2086 # flags are words
"$cxx" -std=c++11 $flags "$source/tests/api/client/main.cpp" $(pkg-config --cflags --libs --static plcalc) \
    -o "$work/by_pkg_config"
by_pkg_config=$(LD_LIBRARY_PATH=$libdir "$work/by_pkg_config")

# A linker that drops what the client does not call itself leaves it to plcalc to find its companion.
if [ -e "$libdir/libplcalc.so" ]; then
    printf '%s\n' '#include <plcalc/kernel.h>' \
        'int main() { PL_PNT2D_record p; PlFunz_set_pnt_2d(3, 4, &p); return p.x == 3 ? 0 : 1; }' >"$work/small.cpp"
    # shellcheck disable=SC2046,SC2086
    "$cxx" -std=c++11 $flags "$work/small.cpp" -Wl,--as-needed \
        $(pkg-config --cflags --libs plcalc) -Wl,-rpath,"$libdir" -o "$work/small"
    (unset LD_LIBRARY_PATH; "$work/small")
fi

build_client layer_client "$prefix"
layer_by_cmake=$("$work/layer_client/layer_client" | head -n 1)
# shellcheck disable=SC2046,SC2086 # flags are words
"$cxx" -std=c++17 $flags "$example" $(pkg-config --cflags --libs --static plparcel) -o "$work/layer_by_pkg_config"
layer_by_pkg_config=$(LD_LIBRARY_PATH=$libdir "$work/layer_by_pkg_config" | head -n 1)

# same <how> <got> <wanted>
same() {
    [ "$2" = "$3" ] || { echo "$1: got $2, wanted $3" >&2; exit 1; }
}
same "through CMake" "$by_cmake" "$want"
same "through pkg-config" "$by_pkg_config" "$want"
line='from 32.0000 0.0000 to 32.0000 50.0000'
same "the layer through CMake" "$layer_by_cmake" "$line"
same "the layer through pkg-config" "$layer_by_pkg_config" "$line"

# What is asked for and is not there is said.
# refused <what find_package is given> <what it says> <prefix>
refused() {
    rm -rf "$work/asks"
    mkdir "$work/asks"
    printf '%s\n' 'cmake_minimum_required(VERSION 3.20)' 'project(asks LANGUAGES CXX)' "find_package(plcalc $1)" \
        >"$work/asks/CMakeLists.txt"
    if "$cmake" -G Ninja -S "$work/asks" -B "$work/asks/build" -DCMAKE_PREFIX_PATH="$3" -DCMAKE_CXX_COMPILER="$cxx" \
        >"$work/log" 2>&1; then
        echo "find_package(plcalc $1) succeeds" >&2
        exit 1
    fi
    tr -s ' \n' ' ' <"$work/log" | grep -qF "$2" || {
        cat "$work/log" >&2
        echo "find_package(plcalc $1) does not say: $2" >&2
        exit 1
    }
}
refused 'COMPONENTS plparsel REQUIRED' 'It has no component plparsel: there are plutil, plcalc, plparcel, plcalc_c.' "$prefix"
refused 'COMPONENTS plparcel REQUIRED' 'Its component plparcel is not installed in' "$work/companion"
refused '0.0.9 REQUIRED' 'requested version "0.0.9"' "$prefix"
refused '1.0 REQUIRED' 'requested version "1.0"' "$prefix"

if grep -rIl "$build" "$prefix"; then
    echo "the files above remember the build folder" >&2
    exit 1
fi
echo "an outside client builds and runs both ways"
