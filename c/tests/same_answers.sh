#!/usr/bin/env bash
# same_answers.sh <answers> <requests> <command...>: the host that the command starts prints, to the last bit, what the
# C++ libraries answer.
set -euo pipefail

wanted=$("$1" "$2")
got=$("${@:3}" "$2")
diff <(printf '%s\n' "$wanted") <(printf '%s\n' "$got") >&2 || {
    echo "the host (>) does not get the answers of the C++ libraries (<)" >&2
    exit 1
}
echo "$(wc -l <<<"$wanted") answers, the same to the last bit"
