#!/usr/bin/env bash
# headers_alone.sh <source folder>: every public header compiles alone, after every other one, and twice,
# from C++11 to C++23, with gcc and clang where they are installed, without a warning.
set -euo pipefail

source_dir=$1
includes=(-I"$source_dir/include" -I"$source_dir/plutil/include")
warnings=(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef -Wold-style-cast -Werror)
mapfile -t headers < <(cd "$source_dir/include" && ls plcalc/*.h; cd "$source_dir/plutil/include" && ls plutil/*.h)
[ ${#headers[@]} -ge 8 ] || { echo "found only ${#headers[@]} headers" >&2; exit 1; }

compiled=0
compile() { # compile <compiler> <standard>, the source on standard input
    "$1" -std="$2" "${warnings[@]}" "${includes[@]}" -x c++ -fsyntax-only - || {
        echo "failed: $1 -std=$2" >&2
        exit 1
    }
    compiled=$((compiled + 1))
}

found=0
for compiler in g++ clang++; do
    command -v "$compiler" >/dev/null || continue
    found=1
    for standard in c++11 c++14 c++17 c++20 c++2b; do
        for header in "${headers[@]}"; do
            compile "$compiler" "$standard" < <(printf '#include <%s>\n#include <%s>\n' "$header" "$header")
        done
    done
    for first in "${headers[@]}"; do
        for second in "${headers[@]}"; do
            compile "$compiler" c++11 < <(printf '#include <%s>\n#include <%s>\n' "$first" "$second")
        done
    done
done
[ "$found" = 1 ] || { echo "no compiler found" >&2; exit 1; }
[ "$compiled" -ge 100 ] || { echo "only $compiled compilations" >&2; exit 1; }
echo "$compiled compilations without a warning"
