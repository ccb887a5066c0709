#!/usr/bin/env bash
# parent_project.sh <cmake> <source folder> <C++ compiler> <extra C++ flags>: builds an application that has plcalc by
# FetchContent and names no build type, installs it, and starts what was installed, which is all that is there.
set -euo pipefail

cmake=$1 source=$2 cxx=$3 flags=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

{
    "$cmake" -G Ninja -S "$source/tests/api/parent_project" -B "$work/build" -DPLCALC_SOURCE="$source" \
        -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_BUILD_TYPE= -DCMAKE_EXPORT_COMPILE_COMMANDS=ON &&
        "$cmake" --build "$work/build" && "$cmake" --install "$work/build" --prefix "$work/installed"
} >"$work/log" 2>&1 || {
    cat "$work/log" >&2
    exit 1
}

fail() {
    echo "$1" >&2
    exit 1
}
installed=$(cd "$work/installed" && find . ! -type d)
[ "$installed" = ./bin/client ] || fail "installed with the application: $installed"
mv "$work/build" "$work/gone" # what was installed must not need it
got=$("$work/installed/bin/client")
[ "$got" = 18414.82 ] || fail "got $got, wanted 18414.82"
sources=$(grep -c '"file": ".*/subdivision/.*\.cpp"' "$work/gone/compile_commands.json")
optimised=$(grep -c -- '-O2 .*/subdivision/.*\.cpp"\?,\?$' "$work/gone/compile_commands.json")
if [ "$sources" = 0 ] || [ "$optimised" != "$sources" ]; then
    fail "$optimised of $sources sources are optimised"
fi
echo "an application with plcalc by FetchContent builds, installs and starts"
