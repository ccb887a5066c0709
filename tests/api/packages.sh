#!/usr/bin/env bash
# packages.sh <cpack> <build folder>: makes the packages, unpacks the .deb together, and calls the program
# there. Without dpkg-deb, only the .tar.gz.
set -euo pipefail

cpack=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

generators=TGZ
! command -v dpkg-deb >/dev/null || generators='DEB;TGZ'
"$cpack" -G "$generators" --config "$build/CPackConfig.cmake" -B "$work/made" >"$work/log" 2>&1 || {
    cat "$work/log" >&2
    exit 1
}

# check <folder>: libraries, headers, package files and program are there, and the program starts.
check() {
    local file
    for file in include/plcalc/plcalc.h include/plutil/plutil.h include/plparcel/division.h include/plcalc_c.h bin/plcalc; do
        [ -n "$(find "$1" -path "*/$file")" ] || { echo "no $file in $1" >&2; exit 1; }
    done
    for file in plcalc.pc plutil.pc plparcel.pc plcalc_c.pc plcalcConfig.cmake plcalcTargets.cmake plutilTargets.cmake; do
        [ -n "$(find "$1" -name "$file")" ] || { echo "no $file in $1" >&2; exit 1; }
    done
    "$(find "$1" -path '*/bin/plcalc')" --version >/dev/null
}

mkdir "$work/tar"
tar -xzf "$work"/made/*.tar.gz -C "$work/tar"
check "$work/tar"

if [ "$generators" != TGZ ]; then
    mkdir "$work/deb"
    for package in "$work"/made/*.deb; do
        dpkg-deb -x "$package" "$work/deb"
    done
    check "$work/deb"
    dpkg-deb -f "$work"/made/plcalc_*.deb Depends | grep -q 'plutil (= ' ||
        { echo "plcalc does not ask for its companion" >&2; exit 1; }
    dpkg-deb -f "$work"/made/plcalc-tool_*.deb Depends | grep -q 'plcalc (= .*libgdal' ||
        { echo "the program does not ask for what it needs" >&2; exit 1; }
fi
echo "packages: $generators"
