#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs a program on a virtual X display of its own, under a window manager.
#
# usage: on_screen.sh WIDTHxHEIGHT PROGRAM [ARGUMENT...]
#
# Ends with the status of the program.
# shellcheck disable=SC2317  # functions are called through trap and wait_until
set -eu

size=$1
shift
scratch=$(mktemp -d)
display_server=""
window_manager=""

end_all() {
    for process in $window_manager $display_server; do
        if kill "$process" 2>/dev/null; then
            wait "$process" || :
        fi
    done
    rm -rf "$scratch"
}
trap end_all EXIT
trap 'exit 1' INT TERM

# Waits half a minute for the command $@ to succeed.
wait_until() {
    tries=600
    until "$@"; do
        tries=$((tries - 1))
        if [ "$tries" -eq 0 ]; then
            echo "waited in vain for: $*" >&2
            exit 1
        fi
        sleep 0.05
    done
}

has_display_number() {
    [ -s "$scratch/display" ]
}

has_window_manager() {
    xdotool get_num_desktops >/dev/null 2>&1
}

Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$scratch/display" 2>"$scratch/errors" &
display_server=$!
wait_until has_display_number
DISPLAY=:$(cat "$scratch/display")
export DISPLAY
HOME=$scratch openbox >"$scratch/errors" 2>&1 &
window_manager=$!
wait_until has_window_manager

status=0
QT_QPA_PLATFORM=xcb "$@" || status=$?
exit "$status"
