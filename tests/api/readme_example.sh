#!/usr/bin/env bash
# readme_example.sh <README> <source> <program>: the README shows the example as it is compiled here, and in the
# block after it what it prints.
set -euo pipefail

block() { # block <n>: the n-th fenced block of the README
    awk -v n="$1" '/^```/ { if (open) { open = 0 } else { open = 1; if (++k == n) next } } open && k == n' "$2"
}

blocks=$(($(grep -c '^```' "$1") / 2))
for ((n = 1; n <= blocks; n++)); do
    diff -q "$2" <(block "$n" "$1") >/dev/null || continue
    diff -u <("$3") <(block $((n + 1)) "$1") || { echo "the README shows another answer than $3 prints" >&2; exit 1; }
    echo "the README's example and its answer hold"
    exit 0
done
echo "no block of the README is $2" >&2
exit 1
