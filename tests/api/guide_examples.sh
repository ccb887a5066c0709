#!/usr/bin/env bash
# guide_examples.sh <folder of the guide> <C++ compiler> <flags and libraries...>: each program on the guide's pages
# compiles, and prints what stands in the block after it.
set -euo pipefail

guide=$1 cxx=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# <page>.<n>.cpp and <page>.<n>.txt of each program
for page in "$guide"/*.md; do
    awk -v base="$work/$(basename "$page" .md)" '
        /^```/ && !open { open = 1; out = ""; if ($0 == "```cpp") { out = base "." ++n ".cpp"; program = NR }
                          else if ($0 == "```" && NR == closed + 1 && was_program) out = base "." n ".txt"; next }
        /^```/ { open = 0; closed = NR; was_program = out ~ /cpp$/; next }
        open && out != "" { print > out }' "$page"
done

count=0
for source in "$work"/*.cpp; do
    program=${source%.cpp}
    [ -e "$program.txt" ] || { echo "$(basename "$program"): the guide does not say what it prints" >&2; exit 1; }
    "$cxx" -std=c++17 "$source" "$@" -o "$program"
    diff -u "$program.txt" <("$program") || { echo "$(basename "$program") prints something else" >&2; exit 1; }
    count=$((count + 1))
done
[ "$count" -gt 0 ] || { echo "$guide: no program" >&2; exit 1; }
echo "$count programs of the guide print what it says"
