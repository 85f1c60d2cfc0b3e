# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# Sourced by the other scripts after `set -eu`. Changes to the root of the checkout.

# With CDPATH set, cd would print the folder.
unset CDPATH
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$root" || exit 1

# ccache skips unchanged files.
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER-}" ] && command -v ccache >/dev/null 2>&1; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

say() {
    printf '%s: %s\n' "${0##*/}" "$*"
}

die() {
    say "$@" >&2
    exit 1
}

cores() {
    nproc 2>/dev/null || echo 2
}

# end_page PAGE: replaces what is below the line of PAGE that names the calling script by the input.
end_page() {
    { sed "/^<!-- written by .*${0##*/} /q" "$1" && echo && sed -e '${/^$/d}'; } >"$1.part"
    mv "$1.part" "$1"
    say "written to $1" >&2
}

# run_steps NAME=COMMAND...: runs each, prints its time, and dies in the end if one failed. A command
# that exits with 77 was skipped, and has said why.
run_steps() {
    local step name start code
    local -a failed=() skipped=()
    for step in "$@"; do
        name=${step%%=*} start=$SECONDS code=0
        printf '\n== %s\n' "$name"
        # Unquoted on purpose: a command and its arguments.
        # shellcheck disable=SC2086
        ${step#*=} || code=$?
        case $code in
        0) ;;
        77) skipped+=("$name") ;;
        *) failed+=("$name") ;;
        esac
        say "$name: code $code after $((SECONDS - start)) s"
    done
    printf '\n'
    [ "${#skipped[@]}" -eq 0 ] || say "skipped: ${skipped[*]}"
    [ "${#failed[@]}" -eq 0 ] || die "failed: ${failed[*]}"
}
