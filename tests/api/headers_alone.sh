#!/usr/bin/env bash
# headers_alone.sh <source folder>: every public header compiles alone, after every other one, and twice, with gcc
# and clang where they are installed, without a warning: those of plcalc and plutil from C++11 to C++23, those of
# plparcel, which asks for it, from C++17 on.
set -euo pipefail

source_dir=$1
libraries=("$source_dir" "$source_dir/plutil" "$source_dir/plparcel")
includes=("${libraries[@]/%//include}")
includes=("${includes[@]/#/-I}")
warnings=(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef -Wold-style-cast -Werror)

headers_of() { # headers_of <library folder>: as a client includes them
    (cd "$1/include" && ls ./*/*.h) | cut -c 3-
}
mapfile -t early < <(headers_of "${libraries[0]}"; headers_of "${libraries[1]}")
mapfile -t late < <(headers_of "${libraries[2]}")
if [ ${#early[@]} -lt 8 ] || [ ${#late[@]} -lt 2 ]; then
    echo "found only ${#early[@]} and ${#late[@]} headers" >&2
    exit 1
fi

compiled=0
compile() { # compile <compiler> <standard> <header> <header>
    "$1" -std="$2" "${warnings[@]}" "${includes[@]}" -x c++ -fsyntax-only - \
        < <(printf '#include <%s>\n#include <%s>\n' "$3" "$4") || {
        echo "failed: $1 -std=$2, $3 and $4" >&2
        exit 1
    }
    compiled=$((compiled + 1))
}

# Alone means twice: the second time shows that a header may be included again.
compile_alone() { # compile_alone <compiler> <standard> <header>...
    local header
    for header in "${@:3}"; do
        compile "$1" "$2" "$header" "$header"
    done
}

compile_in_both_orders() { # compile_in_both_orders <compiler> <standard> <header> <header>...
    local other
    for other in "${@:4}"; do
        compile "$1" "$2" "$3" "$other"
        compile "$1" "$2" "$other" "$3"
    done
}

found=0
for compiler in g++ clang++; do
    command -v "$compiler" >/dev/null || continue
    found=1
    for standard in c++11 c++14; do
        compile_alone "$compiler" "$standard" "${early[@]}"
    done
    for standard in c++17 c++20 c++2b; do
        compile_alone "$compiler" "$standard" "${early[@]}" "${late[@]}"
    done
    for i in "${!early[@]}"; do
        compile_in_both_orders "$compiler" c++11 "${early[i]}" "${early[@]:i+1}"
    done
    for i in "${!late[@]}"; do
        compile_in_both_orders "$compiler" c++17 "${late[i]}" "${early[@]}" "${late[@]:i+1}"
    done
done
[ "$found" = 1 ] || { echo "no compiler found" >&2; exit 1; }
[ "$compiled" -ge 130 ] || { echo "only $compiled compilations" >&2; exit 1; }
echo "$compiled compilations without a warning"
