# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# A user's hand on the viewer that virtual-display.sh opened. Sourced after it. Places are pixels of
# the window as it first opens, 800 x 500, unless a place is given.

: "${viewer_window=}"

# click X Y [BUTTON]: a click into the viewer's window.
click() {
    xdotool mousemove --window "$viewer_window" "$1" "$2"
    sleep 0.2
    xdotool click "${3:-1}"
    sleep 0.5
}

# The id of the window whose title matches, as soon as it is there.
window_titled() {
    wait_until 20 xdotool search --onlyvisible --name "$1" || die "no window titled $1"
    xdotool search --onlyvisible --name "$1" | tail -n 1
}

no_window_titled() {
    ! xdotool search --onlyvisible --name "$1"
}

# open_traces FOLDER FILE...: with the files button, as a user who types the names.
open_traces() {
    local folder=$1 file line=''
    shift
    for file in "$@"; do
        line+="\"$folder/$file\" "
    done
    click 76 90
    window_titled 'Select RFG files to open' >/dev/null
    xdotool type --delay 5 "$line"
    xdotool key Return
    wait_until 20 no_window_titled 'Select RFG files to open' || die "the files were not taken"
    sleep 1
}

# choose_russian: in the settings dialog, by its language box.
choose_russian() {
    local dialog
    click 723 91
    dialog=$(window_titled '^Settings$')
    eval "$(xdotool getwindowgeometry --shell "$dialog" | grep -E '^(WIDTH|HEIGHT)=')"
    xdotool mousemove --window "$dialog" $((WIDTH / 3)) $((HEIGHT / 6)) click 1
    sleep 0.3
    xdotool key Down Return
    sleep 0.5
    xdotool key Return
    wait_until 20 no_window_titled '^Settings$' || die "the settings dialog did not close"
    sleep 1
}
