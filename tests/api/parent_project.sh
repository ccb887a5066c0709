#!/usr/bin/env bash
# parent_project.sh <cmake> <source folder> <C++ compiler> <extra C++ flags>: builds plcalc as a part of another
# project, and runs a client there.
set -euo pipefail

cmake=$1 source=$2 cxx=$3 flags=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

{
    "$cmake" -S "$source/tests/api/parent_project" -B "$work" -DPLCALC_SOURCE="$source" \
        -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$flags" &&
        "$cmake" --build "$work" --target client
} >"$work/log" 2>&1 || {
    cat "$work/log" >&2
    exit 1
}
got=$("$work/client")
[ "$got" = 18414.82 ] || { echo "got $got, wanted 18414.82" >&2; exit 1; }
echo "plcalc builds as a part of another project"
