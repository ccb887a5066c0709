# Bare Debian machines in a folder, for the scripts that must not meet what somebody has installed. Sourced after lib.sh,
# never run. Who sources it sets `work`, a temporary folder, and `logs`, where what was printed stays.
# shellcheck shell=bash
# shellcheck disable=SC2154 # work and logs are the caller's

release=bookworm

# Where this machine has Debian's packages from, a line each, as in sources.list.
package_sources() {
    as_root apt-get update -qq
    # shellcheck disable=SC2016 # for apt-get to expand
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' "Architecture: $(dpkg --print-architecture)" |
        grep " $release" | LC_ALL=C sort -u
}

# How this machine reaches them: proxies, and what it asks of their dates.
package_settings() {
    apt-config dump | grep -E '^Acquire::(https?|Check-[A-Za-z-]+)(::| )' | grep -v ' "";$' || true
    [ -z "${http_proxy-}" ] || printf 'Acquire::http::Proxy "%s";\n' "$http_proxy"
    [ -z "${https_proxy-}" ] || printf 'Acquire::https::Proxy "%s";\n' "$https_proxy"
}

make_bare_machine() {
    local additions=()
    package_sources >"$work/sources.list" || die "this machine knows no source of Debian's $release"
    package_settings >"$work/apt.conf"
    ! grep -q '^deb https:' "$work/sources.list" || additions=(--include=ca-certificates)
    as_root mmdebstrap --mode=root --variant=apt --aptopt="$work/apt.conf" "${additions[@]}" \
        "$release" "$work/bare.tar" "$work/sources.list" >"$logs/bare.log" 2>&1 || {
        cat "$logs/bare.log" >&2
        die "no bare machine could be made"
    }
}

# inside <folder> <user> <command>: logs in there and runs it, with processes, mounts and devices that end with it,
# and nothing of this machine's environment. The devices are its own: root in there cannot reach this machine's.
inside() {
    # shellcheck disable=SC2016 # for the shell inside to expand
    as_root unshare --mount --pid --ipc --fork --kill-child --propagation private bash -ec '
        mount --bind "$1" "$1"
        mount -o remount,bind,suid,dev,exec "$1"
        mount -t tmpfs -o mode=755 tmpfs "$1/dev"
        while read -r name major minor; do
            mknod -m 666 "$1/dev/$name" c "$major" "$minor"
        done <<<"null 1 3
zero 1 5
full 1 7
random 1 8
urandom 1 9
tty 5 0"
        ln -s /proc/self/fd "$1/dev/fd"
        ln -s pts/ptmx "$1/dev/ptmx"
        mkdir "$1/dev/pts" "$1/dev/shm"
        mount -t devpts -o newinstance,ptmxmode=0666,gid=5,mode=620 devpts "$1/dev/pts"
        mount -t tmpfs tmpfs "$1/dev/shm"
        mount -t proc proc "$1/proc"
        exec chroot "$1" /usr/bin/env -i TERM=dumb su - "$2" -c "$3"' \
        inside "$@" </dev/null
}

# What the network of this machine asks its clients to trust. apt-get was told already; npm takes it from the environment.
trust_network() {
    local certificates=(/usr/local/share/ca-certificates/*.crt)
    [ -e "${certificates[0]}" ] || return 0
    cat "${certificates[@]}" | as_root tee "$1/etc/network-certificates.pem" >/dev/null
    echo NODE_EXTRA_CA_CERTS=/etc/network-certificates.pem | as_root tee -a "$1/etc/environment" >/dev/null
}

# unpack_machine <folder>: a bare machine there, which reaches the network as this one does.
unpack_machine() {
    mkdir "$1"
    as_root tar -xf "$work/bare.tar" -C "$1"
    as_root cp -L /etc/resolv.conf "$1/etc/resolv.conf"
    echo "127.0.0.1 localhost $(uname -n)" | as_root tee "$1/etc/hosts" >/dev/null
    trust_network "$1"
}
