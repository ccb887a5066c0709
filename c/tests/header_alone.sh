#!/usr/bin/env bash
# header_alone.sh <folder of the header>: the header compiles alone and twice as C from C99 and as C++ from C++98
# on, with gcc and clang where they are installed, without a warning.
set -euo pipefail

warnings=(-Wall -Wextra -pedantic -Wconversion -Wshadow -Wundef -Werror)
compiled=0
compile() { # compile <compiler> <language> <standard> <warning...>
    "$1" -x "$2" -std="$3" "${warnings[@]}" "${@:4}" -I"$include" -fsyntax-only - \
        < <(printf '#include <plcalc_c.h>\n#include <plcalc_c.h>\n') || {
        echo "failed: $1 -std=$3" >&2
        exit 1
    }
    compiled=$((compiled + 1))
}

include=$1
for compiler in gcc clang; do
    command -v "$compiler" >/dev/null || continue
    for standard in c99 c11 c17; do
        compile "$compiler" c "$standard" -Wstrict-prototypes
    done
    for standard in c++98 c++11 c++17 c++2b; do
        compile "$compiler" c++ "$standard"
    done
done
[ "$compiled" -ge 7 ] || { echo "no compiler found" >&2; exit 1; }
echo "$compiled compilations without a warning"
