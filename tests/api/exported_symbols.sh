#!/usr/bin/env bash
# exported_symbols.sh <nm> <shared library> <list>: the dynamic symbols are exactly those of the list.
set -euo pipefail

got=$("$1" -DC --defined-only "$2" | sed -E 's/^[0-9a-f]+ [A-Za-z] //' | LC_ALL=C sort -u)
if ! diff -u "$3" <(printf '%s\n' "$got"); then
    echo "The dynamic symbols of $2 (+) are not those of $3 (-)." >&2
    exit 1
fi
printf '%s dynamic symbols, as listed\n' "$(printf '%s\n' "$got" | wc -l)"
