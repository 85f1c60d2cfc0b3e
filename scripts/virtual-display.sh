# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# Sourced after common.sh: starts the calling script again on a display in memory, which ends with the
# script. The window manager asks a window to close; the viewer then writes its settings.

if [ "${VELKOR_DISPLAY-}" != own ]; then
    exec env -u WAYLAND_DISPLAY VELKOR_DISPLAY=own xvfb-run --auto-servernum \
        --server-args='-screen 0 2720x1600x24 -dpi 96' "scripts/${0##*/}" "$@"
fi

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

openbox >/dev/null 2>&1 &
wait_until 10 wmctrl -m || die "the window manager did not start"

viewer_pid=''
viewer_window=''

# open_viewer COMMAND...: starts the viewer and waits until its window shows something. Sets
# viewer_pid and viewer_window.
open_viewer() {
    QT_QPA_PLATFORM=xcb "$@" &
    viewer_pid=$!
    wait_until 60 viewer_shows_window_or_ended || die "the viewer showed no window within 60 s"
    [ -n "$viewer_window" ] || die "the viewer ended by itself"
    wait_until 30 window_is_painted || die "the viewer painted nothing within 30 s"
    # Fonts follow the size that the window manager granted.
    sleep 1
}

viewer_shows_window_or_ended() {
    viewer_window=$(xdotool search --onlyvisible --class velkor | head -n 1)
    [ -n "$viewer_window" ] || viewer_has_ended
}

viewer_has_ended() {
    ! kill -0 "$viewer_pid"
}

# The window counts as painted when it has more colours than an empty frame with some text.
window_is_painted() {
    [ "$(import -window "$viewer_window" -format '%k' info:-)" -gt 32 ]
}

# Closes the window as a user does; dies unless the viewer exits with 0.
close_viewer() {
    wmctrl -i -c "$(printf '0x%x' "$viewer_window")"
    wait_until 20 viewer_has_ended || die "the viewer did not close within 20 s"
    wait "$viewer_pid" || die "the viewer ended with code $?"
}
