#!/usr/bin/env bash
# release.sh <source folder>: scripts/release takes its version from the commit, keeps what an earlier run has left, and says
# how it is called. Only the sources are built.
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
git clone -q --no-hardlinks "$1" "$work/clone"
cp "$1"/scripts/release "$work/clone/scripts/"
cd "$work/clone"
git -c user.name=test -c user.email=test@plcalc.example commit -q --allow-empty -am "the script that is tried"
version=$(sed -nE 's/.*PLCALC_VERSION "(.*)"/\1/p' include/plcalc/version.h)
sed -i "s/PLCALC_VERSION \"$version\"/PLCALC_VERSION \"99.9.9\"/" include/plcalc/version.h # not committed

fail() {
    echo "$1" >&2
    cat "$work/log" >&2
    exit 1
}
ends_with() {
    local wanted=$1 status=0
    shift
    scripts/release "$@" >"$work/log" 2>&1 || status=$?
    [ "$status" = "$wanted" ] || fail "release $* ends with $status, not with $wanted"
}

ends_with 0 --help
grep -q 'artefact' "$work/log" || fail "--help does not name the artefacts"
[ ! -e build/release ] || fail "--help builds a release"
ends_with 2 nonsense
ends_with 0 --check sources
[ "$(cd build/release && echo *)" = "SHA256SUMS plcalc-$version.tar.gz" ] || fail "built: $(ls build/release)"
tar -xzOf "build/release/plcalc-$version.tar.gz" "plcalc-$version/include/plcalc/version.h" | grep -q "\"$version\"" ||
    fail "the sources have another version than their name"
touch build/release/earlier
ends_with 1 sources
[ -e build/release/earlier ] || fail "an earlier release is gone"
ends_with 0 --overwrite sources
[ ! -e build/release/earlier ] || fail "--overwrite leaves what was there"
echo "scripts/release: the version of the commit, nothing lost, and help"
