# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of velkor-tdr for bash.

_velkor_tdr() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local options='' files='*.tdr'
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'info check csv from-csv --help --version' -- "$word")
        return
    fi
    case ${COMP_WORDS[1]} in
    info) options='--json --all --help' ;;
    check) options='--help' ;;
    csv) options='--output --force --help' ;;
    from-csv)
        options='--output --force --step --ku --delay --date --help'
        files='*.csv'
        ;;
    *) return ;;
    esac
    case $previous in
    --step | --ku | --delay | --date) return ;;
    -o | --output)
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        compopt -o filenames
        return
        ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X "!$files" -- "$word")
        compopt -o filenames
    fi
}
complete -F _velkor_tdr velkor-tdr
