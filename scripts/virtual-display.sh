# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# A display in memory with a window manager. Sourced after common.sh. The window manager is what asks
# a window to close, which is when the viewer writes its settings.

display_folder=''
display_pids=()

# start_display WIDTHxHEIGHT: sets DISPLAY and XAUTHORITY; everything ends with the calling script.
start_display() {
    local cookie number=''
    display_folder=$(mktemp -d)
    trap stop_display EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM

    # The server takes any entry of its file; the clients' entry needs the number that it chose.
    export XAUTHORITY=$display_folder/authority
    cookie=$(mcookie)
    : >"$XAUTHORITY"
    xauth -q -f "$XAUTHORITY" add :0 . "$cookie"
    mkfifo "$display_folder/number"
    Xvfb -displayfd 5 -screen 0 "$1x24" -dpi 96 -nolisten tcp -auth "$XAUTHORITY" \
        5>"$display_folder/number" >"$display_folder/server.log" 2>&1 &
    display_pids+=($!)
    read -r -t 30 number <>"$display_folder/number" || true
    if [ -z "$number" ]; then
        cat "$display_folder/server.log" >&2
        die "the virtual display did not start"
    fi
    xauth -q -f "$XAUTHORITY" add ":$number" . "$cookie"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY

    openbox >"$display_folder/manager.log" 2>&1 &
    display_pids+=($!)
    wait_until 10 wmctrl -m || die "the window manager did not start"
}

stop_display() {
    local pid i
    # In reverse order: the display last.
    for ((i = ${#display_pids[@]} - 1; i >= 0; i--)); do
        pid=${display_pids[i]}
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    display_pids=()
    rm -rf "$display_folder"
}

# wait_until SECONDS COMMAND...: repeats the command until it succeeds; false after the time.
wait_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        if [ "$SECONDS" -ge "$end" ]; then
            return 1
        fi
        sleep 0.2
    done
}

viewer_pid=''
viewer_window=''

# open_viewer EXECUTABLE: starts it on the display and waits until its window shows something.
# Sets viewer_pid and viewer_window.
open_viewer() {
    QT_QPA_PLATFORM=xcb "$@" >"$display_folder/viewer.log" 2>&1 &
    viewer_pid=$!
    display_pids+=("$viewer_pid")
    wait_until 60 viewer_shows_window_or_ended || true
    if [ -z "$viewer_window" ] || ! wait_until 30 window_is_painted; then
        cat "$display_folder/viewer.log" >&2
        if viewer_has_ended 2>/dev/null; then
            die "the viewer ended by itself"
        fi
        die "the viewer showed no window"
    fi
    # Fonts follow the size that the window manager granted.
    sleep 1
}

viewer_shows_window_or_ended() {
    viewer_window=$(xdotool search --onlyvisible --class velkor | head -n 1)
    [ -n "$viewer_window" ] || viewer_has_ended
}

# The window counts as painted when it has more colours than an empty frame with some text.
window_is_painted() {
    [ "$(import -window "$viewer_window" -format '%k' info:-)" -gt 32 ]
}

# take_picture FILE.png: the window without its frame, and without dates, so that the same window
# gives the same file.
take_picture() {
    mkdir -p "$(dirname "$1")"
    import -window "$viewer_window" -define png:exclude-chunks=date,time +set date:create \
        +set date:modify "$1"
}

# Closes the window as a user does; dies unless the viewer exits with 0.
close_viewer() {
    local code=0
    wmctrl -i -c "$(printf '0x%x' "$viewer_window")"
    if ! wait_until 20 viewer_has_ended; then
        die "the viewer did not close within 20 s"
    fi
    wait "$viewer_pid" || code=$?
    unset 'display_pids[-1]'
    if [ "$code" -ne 0 ]; then
        cat "$display_folder/viewer.log" >&2
        die "the viewer ended with code $code"
    fi
}

viewer_has_ended() {
    ! kill -0 "$viewer_pid"
}
