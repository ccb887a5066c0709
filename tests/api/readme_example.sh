#!/usr/bin/env bash
# readme_example.sh <README> <source> <program>: the README shows the example as it is compiled here, and what
# it prints.
set -euo pipefail

block() { # block <n>: the n-th fenced block of the README
    awk -v n="$1" '/^```/ { if (open) { open = 0 } else { open = 1; if (++k == n) next } } open && k == n' "$2"
}

diff -u "$2" <(block 1 "$1") || { echo "the README's example is not $2" >&2; exit 1; }
diff -u <("$3") <(block 2 "$1") || { echo "the README shows another answer than $3 prints" >&2; exit 1; }
echo "the README's example and its answer hold"
