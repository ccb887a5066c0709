#!/usr/bin/env bash
# debug_containers.sh <source folder> <C++ compiler> <flags and libraries...>: _GLIBCXX_DEBUG makes other types of the
# standard library's containers. A program with it links with plcalc and plutil and runs; with a plparcel that was built
# without it, it does not link, whichever way the containers pass.
set -euo pipefail

source=$1 cxx=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cxx" -std=c++11 -D_GLIBCXX_DEBUG "$source/tests/api/client/main.cpp" "$@" -o "$work/client"
got=$("$work/client")
[ "$got" = 18414.82 ] || { echo "got $got, wanted 18414.82" >&2; exit 1; }

# Each has containers: in an argument, in a record, in the record that is given back, in what is given back.
calls=('plparcel::check_ring({})' 'plparcel::check_parcel(plparcel::Parcel())' 'plparcel::divide(plparcel::Parcel(), {})'
       'plparcel::describe(plparcel::Division())' 'plparcel::equal_parts(2)' 'plparcel::longest_side(plparcel::Parcel())')
for call in "${calls[@]}"; do
    printf '%s\n' '#include <plparcel/division.h>' '#include <plparcel/which_side.h>' \
        "int main() { (void)$call; return 0; }" >"$work/call.cpp"
    "$cxx" -std=c++17 "$work/call.cpp" "$@" -o "$work/call" || { echo "$call does not link at all" >&2; exit 1; }
    if "$cxx" -std=c++17 -D_GLIBCXX_DEBUG "$work/call.cpp" "$@" -o "$work/call" 2>"$work/log"; then
        echo "$call links with other containers" >&2
        exit 1
    fi
    grep -q 'undefined reference' "$work/log" || { cat "$work/log" >&2; exit 1; }
done
echo "${#calls[@]} calls with other containers do not link"
