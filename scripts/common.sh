# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# What the chores share. Sourced after `set -eu`; every chore then works from the root of the
# checkout, wherever it was called from.

# With CDPATH set, cd would print where it went.
unset CDPATH
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$root" || exit 1

# A second build of an unchanged file costs nothing where the compiler cache is at hand.
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER-}" ] && command -v ccache >/dev/null 2>&1; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

say() {
    printf '%s: %s\n' "${0##*/}" "$*"
}

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

cores() {
    nproc 2>/dev/null || echo 2
}

has_display() {
    [ -n "${DISPLAY-}" ] || [ -n "${WAYLAND_DISPLAY-}" ]
}

# A file path as the value of an INI key, readable for the viewer whatever the folder is called.
# The settings file is plain ASCII, a backslash begins an escape, a comma makes a list and a
# semicolon a comment; so everything but the plainest characters becomes a \x escape. The digits
# of an escape have no fixed number: a hexadecimal digit right after one is escaped as well.
ini_path() {
    local LC_ALL=C.UTF-8 text=$1 value='' escaped='' i c code
    for ((i = 0; i < ${#text}; i++)); do
        c=${text:i:1}
        case $c in
        [0123456789abcdefABCDEF])
            if [ -n "$escaped" ]; then
                printf -v c '\\x%x' "'$c"
            fi
            ;;
        [ghijklmnopqrstuvwxyzGHIJKLMNOPQRSTUVWXYZ] | [/._-] | ' ')
            escaped=''
            ;;
        *)
            printf -v code '%d' "'$c"
            if ((code > 0xffff)); then
                printf -v c '\\x%x\\x%x' \
                    $((0xd800 + ((code - 0x10000) >> 10))) $((0xdc00 + ((code - 0x10000) & 0x3ff)))
            else
                printf -v c '\\x%x' "$code"
            fi
            escaped=yes
            ;;
        esac
        value+=$c
    done
    printf '"%s"' "$value"
}

# write_settings FILE [LANGUAGE]: the settings of a previous run that had the sample traces open.
write_settings() {
    local file=$1 language=${2-} mask=0 slot=0 trace
    local -a lines=()
    for trace in samples/*.tdr; do
        if [ -f "$trace" ] && [ "$slot" -lt 6 ]; then
            mask=$((mask | 1 << slot))
            slot=$((slot + 1))
            lines+=("file$slot=$(ini_path "$root/$trace")")
        fi
    done
    {
        if [ -n "$language" ]; then
            printf '[General]\nlanguage=%s\n\n' "$language"
        fi
        printf '[PrevFiles]\nMasterId=0\nStateIndex=%d\n' "$mask"
        if [ "$slot" -gt 0 ]; then
            printf '%s\n' "${lines[@]}"
        fi
        printf '\n[WorkFolders]\nlastFolder=%s\n' "$(ini_path "$root/samples")"
    } >"$file.part"
    mv "$file.part" "$file"
}
