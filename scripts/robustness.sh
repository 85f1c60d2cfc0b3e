# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# The parts that scripts/robust and scripts/soak are made of, in one table. Sourced after common.sh.

# part NAME QUICK RELEASE WHAT: the amounts of scripts/robust and scripts/soak, and what they count.
# The command of a part is the function run_NAME, which gets the amount. 0 leaves the part out.
# The longest come first, so that the last ones end together.
parts=()
declare -A quick release what amounts
part() {
    parts+=("$1")
    quick[$1]=$2
    release[$1]=$3
    what[$1]=$4
}

part window 10000 100000 'loads into a whole window, with what its user does'
part monkey 100000 1000000 'random events at the window'
part record 1000000 100000000 'records through all that is computed from them'
part settings 10000 300000 'settings files: loaded, saved, loaded, applied'
part texts 3000 100000 'lists of languages and style sheets'
part replay 10 6000 'laps of 500 events in one window, memory and descriptors watched'
part kills 200 2000 'windows and a tenth as many programs killed while they save'
part faults 1 10 'of ten calls of the system fail, each in a run of its own'
part valgrind 0 1200 'seconds under Valgrind'

run_window() { scripts/fuzz window "$1"; }
# Over three seeds, from a million on over one for every ten thousand events.
run_monkey() {
    local seeds=3 first
    [ "$1" -lt 1000000 ] || seeds=$(($1 / 10000))
    first=$(first_seed)
    mkdir -p build/fuzz/findings
    LC_ALL=C.UTF-8 TZ=UTC build/fuzz/fuzz/monkey/velkor-monkey \
        --seeds "$first..$((first + seeds - 1))" \
        --events $((($1 + seeds - 1) / seeds)) --keep build/fuzz/findings
}
run_replay() {
    local first
    first=$(first_seed)
    LC_ALL=C.UTF-8 TZ=UTC build/fuzz/fuzz/monkey/velkor-monkey --watch "$1" --seeds "$first..$first"
}
first_seed() { echo "${SEED-$((RANDOM * 32768 + RANDOM + 1))}"; }
run_kills() { faults --kills "$1" --program-kills $((($1 + 9) / 10)) --seed "${SEED-$RANDOM}"; }
# Ten tenths are every call; what goes beyond is done all over again.
run_faults() {
    local left=$1
    for (( ; left >= 10; left -= 10)); do
        faults --every 1 || return
    done
    [ "$left" -eq 0 ] || faults --every $((10 / left))
}
faults() {
    LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0 \
        build/fuzz/fuzz/faults/velkor-faults.dir/velkor-faults "$@"
}
run_record() { scripts/fuzz record "$1"; }
run_settings() { scripts/fuzz settings "$1"; }
run_texts() { scripts/fuzz texts "$1"; }
run_valgrind() { scripts/valgrind "$1"; }

# timed FILE COMMAND...: puts the seconds that the command had of a core into the file.
timed() {
    local TIMEFORMAT='%U %S' file=$1
    shift
    { time "$@" 2>&3; } 3>&2 2>"$file"
}

# cost NAME: what was noted about a part.
cost() {
    awk -v wall="$((SECONDS - begun[$1]))" \
        '{ printf "%d s, %d s of a core", wall, $1 + $2 }' "$folder/$1.time"
}

# Runs every part with its amount from the array `amounts`, one for each core at a time, and says of
# each how it went. False when one failed.
run_parts() {
    local folder=build/robustness name pid code started=$SECONDS
    local -A running=() begun=()
    local -a waiting=() failed=()
    mkdir -p "$folder"
    for name in "${parts[@]}"; do
        [ "${amounts[$name]}" -eq 0 ] || waiting+=("$name")
    done
    scripts/setup fuzz
    scripts/build fuzz >"$folder/build.log" 2>&1 || {
        tail -n 40 "$folder/build.log" >&2
        die "building failed"
    }
    export VELKOR_FUZZERS_BUILT=yes
    say "built after $((SECONDS - started)) s; the logs are in $folder"
    while [ "${#waiting[@]}" -gt 0 ] || [ "${#running[@]}" -gt 0 ]; do
        while [ "${#waiting[@]}" -gt 0 ] && [ "${#running[@]}" -lt "$(cores)" ]; do
            name=${waiting[0]}
            waiting=("${waiting[@]:1}")
            say "$name: ${amounts[$name]} ${what[$name]}"
            timed "$folder/$name.time" "run_$name" "${amounts[$name]}" \
                >"$folder/$name.log" 2>&1 </dev/null &
            running[$!]=$name
            begun[$name]=$SECONDS
        done
        code=0
        wait -n -p pid "${!running[@]}" || code=$?
        name=${running[$pid]}
        unset "running[$pid]"
        if [ "$code" -eq 0 ]; then
            say "$name: well after $(cost "$name")"
            tail -n 3 "$folder/$name.log" | sed 's/^/    /'
        else
            failed+=("$name")
            say "$name: FAILED with code $code after $(cost "$name")" >&2
            tail -n 60 "$folder/$name.log" >&2
        fi
    done
    say "all parts: $((SECONDS - started)) s"
    if [ "${#failed[@]}" -gt 0 ]; then
        die "failed: ${failed[*]}; the logs are in $folder"
    fi
}

# take_amounts NAME=AMOUNT...: changes `amounts`. A number alone multiplies all of them.
take_amounts() {
    local word name
    for word in "$@"; do
        name=${word%%=*}
        case $word in
        *=*[!0-9]* | *=) die "'$word': an amount is a number" ;;
        *=*)
            [ -n "${amounts["$name"]-}" ] || die "unknown part '$name' (${parts[*]})"
            amounts["$name"]=$((10#${word#*=}))
            ;;
        *[!0-9]* | '') die "'$word' is neither NAME=AMOUNT nor a factor (${parts[*]})" ;;
        *)
            for name in "${parts[@]}"; do
                amounts["$name"]=$((amounts["$name"] * 10#$word))
            done
            ;;
        esac
    done
}

# robustness quick|release [NAME=AMOUNT | FACTOR]...
robustness() {
    local name
    for name in "${parts[@]}"; do
        case $1 in
        quick) amounts["$name"]=${quick["$name"]} ;;
        release) amounts["$name"]=${release["$name"]} ;;
        esac
    done
    # The same dice for every change, so that one which fails fails again; a release gets new ones.
    if [ "$1" = quick ]; then
        export SEED=${SEED-1}
    fi
    shift
    take_amounts "$@"
    run_parts
}
