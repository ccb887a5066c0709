#!/usr/bin/env bash
# check_coverage.sh <plcalc symbols> <plutil symbols> <plparcel symbols> <README> <harness>...
#
# The table of the README against what is exported and what is built: every exported function, by its name,
# stands in a row; every harness of a row is among those named here, which are built, and the other way round;
# and each harness names, in its source, what its row says that it calls.
set -euo pipefail

[ $# -gt 4 ] || {
    echo "usage: $0 <plcalc symbols> <plutil symbols> <plparcel symbols> <README> <harness>..." >&2
    exit 2
}
readme=$4
fuzz_dir=$(dirname "$readme")
exported=$(sed 's/(.*//' "$1" "$2" "$3" | LC_ALL=C sort -u)
shift 4
built=$(printf '%s\n' "$@")

failed=0
complain() {
    echo "$readme: $*" >&2
    failed=1
}

# What stands between backticks, a line each.
quoted() {
    # shellcheck disable=SC2016 # backticks as they are
    grep -o '`[^`]*`' | tr -d '`' || true
}

# Rows of the table: | `harness` | calls | reaches through them |
rows=$(sed -n '/^| harness /,/^$/p' "$readme" | grep '^| `' || true)
[ -n "$rows" ] || {
    echo "$readme: no table that begins with \"| harness \"" >&2
    exit 1
}

listed=$(cut -d'|' -f2 <<<"$rows" | quoted)
covered=$(cut -d'|' -f3- <<<"$rows" | quoted)

while read -r name; do
    grep -qxF -- "$name" <<<"$covered" || complain "$name is exported, and no harness covers it: add it to one"
done <<<"$exported"

while read -r name; do
    grep -qxF -- "$name" <<<"$built" || complain "the harness $name is not built: add it to fuzz/CMakeLists.txt"
done <<<"$listed"
while read -r name; do
    grep -qxF -- "$name" <<<"$listed" || complain "the harness $name is built, and has no row"
done <<<"$built"

# A claim of the table counts only when the source bears it out. A class stands for its constructors, its
# destructor and its assignments, which have no name of their own in a call.
while IFS='|' read -r _ harness calls _; do
    harness=$(quoted <<<"$harness")
    source=$fuzz_dir/$harness.cpp
    [ -f "$source" ] || {
        complain "the harness $harness has no source $source"
        continue
    }
    headers=$(sed -n 's|^#include "fuzz/\(.*\)"|'"$fuzz_dir"'/\1|p' "$source")
    # shellcheck disable=SC2086 # one word per header
    text=$(cat "$source" $headers | sed 's|//.*||')
    while read -r name; do
        called=${name##*::}
        case $called in
            '~'* | operator*) called=${name%%::*} ;;
        esac
        grep -qwF -- "$called" <<<"$text" || complain "the harness $harness is said to call $name, and does not"
    done < <(quoted <<<"$calls")
done <<<"$rows"

[ "$failed" = 0 ] || exit 1
printf '%s exported names, %s harnesses, as the table says\n' \
    "$(wc -l <<<"$exported")" "$(wc -l <<<"$built")"
