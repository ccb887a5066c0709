#!/usr/bin/env bash
# packages.sh <cpack> <build folder>: makes the .tar.gz, unpacks it, and calls the program there.
set -euo pipefail

cpack=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cpack" --config "$build/CPackConfig.cmake" -B "$work/made" >"$work/log" 2>&1 || {
    cat "$work/log" >&2
    exit 1
}
mkdir "$work/tar"
tar -xzf "$work"/made/*.tar.gz -C "$work/tar"
for file in include/plcalc/plcalc.h include/plutil/plutil.h include/plparcel/division.h include/plcalc_c.h bin/plcalc \
    plcalc.pc plutil.pc plparcel.pc plcalc_c.pc plcalcConfig.cmake plcalcTargets.cmake plutilTargets.cmake; do
    [ -n "$(find "$work/tar" -path "*/$file")" ] || { echo "no $file in the .tar.gz" >&2; exit 1; }
done
"$(find "$work/tar" -path '*/bin/plcalc')" --version >/dev/null
echo "the .tar.gz has everything"
