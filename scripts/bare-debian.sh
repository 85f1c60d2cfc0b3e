# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# A Debian that has only the dependencies of a package. Sourced after common.sh, as root, in a mount
# namespace of its own, so that its mounts go with it. Its /dev is what debootstrap makes.

: "${root:?}"
bare=''

# bare_debian PACKAGE.deb: a new folder with the system, ready for chroot; its path is in bare. The
# system is made once from the package sources of this machine and then copied.
bare_debian() {
    local codename mirror depends key base
    codename=$(. /etc/os-release && printf '%s' "${VERSION_CODENAME-}")
    # The dollars are apt-get's own.
    # shellcheck disable=SC2016
    mirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' \
        | awk -v release="$codename" '$2 == release { print $1; exit }')
    [ -n "$mirror" ] || die "no package source for $codename on this machine"
    depends=$(dpkg-deb -f "$1" Depends)
    key=$(printf '%s\n' "$codename" "$mirror" "$depends" | sha256sum | cut -c 1-16)
    base=${XDG_CACHE_HOME:-$HOME/.cache}/velkor/bare-debian/$key

    if [ ! -e "$base/.ready" ]; then
        # Older ones have other dependencies.
        remove_tree "${base%/*}"
        make_base "$base" "$codename" "$mirror" "$depends"
        touch "$base/.ready"
    fi

    bare=$root/build/bare-debian
    remove_tree "$bare"
    cp -a --reflink=auto "$base" "$bare"
    mount -t proc proc "$bare/proc"
}

# Removes the system, if there is one.
remove_bare_debian() {
    if [ -n "$bare" ]; then
        umount "$bare/proc" 2>/dev/null || true
        remove_tree "$bare"
        bare=''
    fi
}

# Does not descend into mounts.
remove_tree() {
    rm -rf --one-file-system "$1"
}

make_base() {
    local base=$1 codename=$2 mirror=$3 depends=$4 log=$root/build/bare-debian.log
    say "making a bare Debian once; this takes some minutes"
    mkdir -p "$base"
    debootstrap --variant=minbase --include=ca-certificates "$codename" "$base" "$mirror" \
        >"$log" 2>&1 || { tail -n 30 "$log" >&2; die "debootstrap failed"; }
    # The package sources and the network configuration of this machine.
    # shellcheck disable=SC2016
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u >"$base/etc/apt/sources.list"
    cp -a /etc/apt/apt.conf.d/. "$base/etc/apt/apt.conf.d/"
    cp -L /etc/resolv.conf /etc/hosts "$base/etc/"
    cp -L /etc/ssl/certs/ca-certificates.crt "$base/etc/ssl/certs/" 2>/dev/null || true
    mount -t proc proc "$base/proc"
    bare=$base
    {
        in_bare apt-get -q update
        in_bare apt-get -q -y --no-install-recommends -o Dpkg::Use-Pty=0 satisfy "$depends"
        in_bare apt-get clean
    } >"$log" 2>&1 || { tail -n 30 "$log" >&2; die "the dependencies cannot be installed"; }
    umount "$base/proc"
    bare=''
}

# in_bare COMMAND...: as root in the bare system, with the proxy of this machine.
in_bare() {
    chroot "$bare" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive \
        ${http_proxy+"http_proxy=$http_proxy"} ${https_proxy+"https_proxy=$https_proxy"} \
        ${no_proxy+"no_proxy=$no_proxy"} "$@"
}
