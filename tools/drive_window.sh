# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2034,SC2154  # some variables belong to the scripts that source this
#
# Drives the program's window with keys and the mouse, on an X display with a window manager.
# Scripts source it. They set `scale`, the display's pixels per pixel of the program, which may be a
# fraction such as 1.5, and `folder`, where a picture is saved when a wait has failed. Those that
# can't save one there define another picture_of_failure.

picture_of_failure() {
    import -window root "$folder/timeout.png"
    echo "see $folder/timeout.png" >&2
}

# The display's pixels for $1 pixels of the program.
display_pixels() {
    awk -v pixels="$1" -v scale="$scale" 'BEGIN { printf "%.0f", pixels * scale }'
}

# The program's pixels for $1 pixels of the display.
program_pixels() {
    awk -v pixels="$1" -v scale="$scale" 'BEGIN { printf "%.0f", pixels / scale }'
}

# Waits half a minute for the command $@ to succeed.
wait_until() {
    tries=600
    until "$@"; do
        tries=$((tries - 1))
        if [ "$tries" -eq 0 ]; then
            echo "timed out waiting for: $*" >&2
            picture_of_failure
            exit 1
        fi
        sleep 0.05
    done
}

has_window_manager() {
    xdotool get_num_desktops >/dev/null 2>&1
}

# A window that opens before the window manager runs may stay invisible, so this waits for the
# manager. Windows have no frames, so that a list that extends beyond its dialog has nothing else
# around it.
start_window_manager() {
    mkdir -p "$HOME/.config/openbox"
    cat >"$HOME/.config/openbox/rc.xml" <<'END'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
  <applications><application class="*"><decor>no</decor></application></applications>
</openbox_config>
END
    openbox 2>/dev/null &
    wait_until has_window_manager
}

active_window() {
    xdotool getactivewindow 2>/dev/null
}

is_active() {
    [ "$(active_window)" = "$1" ]
}

is_another_active() {
    window=$(active_window) && [ "$window" != "$1" ]
}

is_main_window_up() {
    main=$(xdotool search --onlyvisible --name '^Kelvra$' 2>/dev/null | tail -n 1)
    [ -n "$main" ]
}

# Stores the program's window in `main` once it has opened, and moves it to a fixed place.
find_main_window() {
    wait_until is_main_window_up
    wait_until is_active "$main"
    xdotool windowmove --sync "$main" 40 40
    sleep 0.5
}

# Stores the window that opened over the window $1 in `dialog`, once it has had time to be painted.
find_dialog_over() {
    wait_until is_another_active "$1"
    sleep 0.4
    dialog=$(active_window)
}

close_dialog_over() {
    xdotool key Escape
    wait_until is_active "$1"
    sleep 0.3
}

# The value that the display reports for the property $2 of the window $1.
window_info() {
    xwininfo -id "$1" | sed -n "s/^ *$2: *//p"
}

# Moves the mouse to the point $2, $3 of the window $1, in the program's pixels. Negative values are
# counted from the right and from the bottom.
point_at() {
    x=$(display_pixels "$2")
    y=$(display_pixels "$3")
    [ "$x" -ge 0 ] || x=$(($(window_info "$1" Width) + x))
    [ "$y" -ge 0 ] || y=$(($(window_info "$1" Height) + y))
    xdotool mousemove --window "$1" "$x" "$y"
    sleep 0.3
}

# Under Wine, a click without a pause between press and release may be lost.
click_mouse() {
    xdotool mousedown 1 sleep 0.1 mouseup 1
}

click() {
    point_at "$@"
    click_mouse
}

move_mouse_away() {
    xdotool mousemove 0 0
    sleep 0.3
}

resize_main() {
    xdotool windowsize --sync "$main" "$(display_pixels "$1")" "$(display_pixels "$2")"
    sleep 0.5
}

click_settings() { click "$main" 22 15; }
click_about() { click "$main" -50 15; }
click_help() { click "$main" -22 15; }
click_load() { click "$main" 137 139; }
click_undo() { click "$main" 447 63; }
point_at_fix() { point_at "$main" 360 63; }
click_year_field() { click "$main" 340 145; }

# Opens the file dialog and types the names of all photos in the folder $1.
select_photos() {
    click_load
    find_dialog_over "$main"
    xdotool type --delay 5 "$1"
    xdotool key Return
    sleep 0.5
    xdotool type --delay 5 "$(cd "$1" && printf '"%s" ' *.JPG)"
    sleep 0.3
}

# Types a shift, starting in the year field; "Tab" goes to the next field.
type_shift() {
    click_year_field
    xdotool key ctrl+a
    for word in "$@"; do
        case $word in
        Tab) xdotool key Tab ;;
        *) xdotool type -- "$word" ;;
        esac
    done
    sleep 0.3
}
