#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs a program on a private virtual X display, under a window manager.
#
# usage: on_screen.sh WIDTHxHEIGHT PROGRAM [ARGUMENT...]
#
# Exits with the program's status.
# shellcheck disable=SC2317  # functions are called through trap and wait_until
set -eu

# shellcheck source=tools/drive_window.sh
. "$(dirname "$0")/../../tools/drive_window.sh"

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

has_display_number() {
    [ -s "$scratch/display" ]
}

# Called while no program is on the display yet, so there is nothing to show.
picture_of_failure() { :; }

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
