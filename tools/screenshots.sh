#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Takes a picture of each screen of the real program, under a virtual display with a window manager,
# in both languages and at the scale factors 1, 1.5 and 2. Installs missing Debian packages first
# (and lists them), then builds the program.
#
# usage: tools/screenshots.sh
#
# Saves the pictures in build/screenshots/LANGUAGE-SCALEx/ and copies those of scale 1 to
# docs/screenshots/LANGUAGE/ for the documents. Fails if the program wrote to its standard error.
# Only one run at a time is possible: the scratch folder has a fixed name.
set -eu

script=$(realpath "$0")
tree=$(dirname "$(dirname "$script")")
. "$tree/tools/drive_window.sh"

holiday_photos="IMG_2041 IMG_2042 IMG_2043 IMG_2044 IMG_2045 IMG_2046
    P1080317 P1080318 P1080319 P1080320 P1080321"
many_photos=150

# --- Photos -----------------------------------------------------------------------------------

make_photo() {
    photo=$1
    shift
    convert -size 96x64 'gradient:#7f9ab0-#c9b48a' "$photo"
    exiftool -quiet -overwrite_original "$@" "$photo"
}

# Photos of two cameras, one of which is an hour and a half slow, a scan with an IPTC date without a
# zone, and a map without any recording time.
make_photos() {
    mkdir -p "$1/holiday" "$1/many"
    minute=10
    for name in $holiday_photos; do
        case $name in
        IMG_*) time="15:$minute:21" ;;
        *) time="13:$minute:48" ;;
        esac
        make_photo "$1/holiday/$name.JPG" "-ExifIFD:DateTimeOriginal=2026:08:14 $time"
        minute=$((minute + 4))
    done
    make_photo "$1/holiday/Map.JPG" -Title=Map
    make_photo "$1/holiday/Scan.JPG" "-ExifIFD:DateTimeOriginal=1972:05:01 12:00:00" \
        -IPTC:DateCreated=1972:05:01
    for number in $(seq "$many_photos"); do
        cp "$1/holiday/IMG_2041.JPG" "$1/many/$number.JPG"
    done
}

# --- Pictures ---------------------------------------------------------------------------------

# Saves a picture of the window $2 as $1.
take() {
    import -window "$2" "$folder/$1.png"
}

# Saves a picture of the two big buttons as $1.
take_big_buttons() {
    size=$(display_pixels 190)x$(display_pixels 66)
    import -window "$main" -crop "$size+$(display_pixels 290)+$(display_pixels 30)" +repage \
        "$folder/$1.png"
}

# Saves a picture of the window $2 with everything over it, and $3 pixels above and below it, as $1.
take_with_popups() {
    margin=$(display_pixels "$3")
    left=$(window_info "$2" "Absolute upper-left X")
    top=$(($(window_info "$2" "Absolute upper-left Y") - margin))
    width=$(window_info "$2" Width)
    height=$(($(window_info "$2" Height) + 2 * margin))
    import -window root -crop "${width}x$height+$left+$top" +repage "$folder/$1.png"
}

# --- Screens ----------------------------------------------------------------------------------

shoot_empty_window() {
    # A key press shows the caret immediately.
    xdotool key Home
    take first_start "$main"
    take_big_buttons button_disabled
    point_at_fix
    take_big_buttons button_hovered
    sleep 2.5
    take_with_popups tooltip "$main" 0
    xdotool mousedown 1
    sleep 0.2
    take_big_buttons button_pressed
    move_mouse_away
    xdotool mouseup 1
}

shoot_settings() {
    click_settings
    find_dialog_over "$main"
    take settings "$dialog"
    click "$dialog" -60 20
    sleep 0.3
    take_with_popups settings_languages "$dialog" 24
    xdotool key "$other_language_key" Return Escape
    sleep 0.3
    find_dialog_over "$dialog"
    take language_changed "$dialog"
    # Escape would quit the program.
    xdotool key Return
    wait_until is_active "$main"
}

shoot_about() {
    click_about
    find_dialog_over "$main"
    about=$dialog
    move_mouse_away
    take about "$about"
    click "$about" "$(($(program_pixels "$(window_info "$about" Width)") / 2))" -36
    find_dialog_over "$about"
    take libraries "$dialog"
    close_dialog_over "$about"
    close_dialog_over "$main"
}

shoot_report() {
    xdotool key ctrl+shift+g
    find_dialog_over "$main"
    take report "$dialog"
    close_dialog_over "$main"
}

shoot_photos() {
    select_photos "$photos/holiday"
    take select_files "$dialog"
    xdotool key Return
    wait_until is_active "$main"
    sleep 1
    type_shift 0 Tab Tab Tab 1 Tab 30
    move_mouse_away
    take preview "$main"
    resize_main 800 600
    take smallest_window "$main"
    resize_main 1920 1080
    take largest_window "$main"
    resize_main 800 700
}

shoot_warnings() {
    type_shift -1
    point_at_fix
    click_mouse
    find_dialog_over "$main"
    take warning_zone "$dialog"
    zone_warning=$dialog
    xdotool key Return
    find_dialog_over "$zone_warning"
    take warning_early "$dialog"
    close_dialog_over "$main"
}

shoot_failure() {
    rm "$photos/holiday/P1080318.JPG" "$photos/holiday/P1080320.JPG"
    type_shift 0 Tab Tab Tab Tab Tab Tab 2
    point_at_fix
    click_mouse
    sleep 1
    find_dialog_over "$main"
    take failure "$dialog"
    close_dialog_over "$main"
}

hold_tool() { pkill -STOP -P "$program"; }
let_tool_go() { pkill -CONT -P "$program"; }

# Stops the tool; succeeds if another window is then active. Otherwise lets the tool continue.
holds_tool_in_batch() {
    hold_tool
    is_another_active "$main" && return
    let_tool_go
    return 1
}

# Saves a picture of the window in the middle of a batch as $1. The tool is stopped meanwhile, so
# the program waits for it.
take_batch() {
    wait_until holds_tool_in_batch
    let_tool_go
    sleep 0.05
    wait_until holds_tool_in_batch
    sleep 0.4
    take_with_popups "$1" "$main" 0
    let_tool_go
    wait_until is_active "$main"
}

shoot_batches() {
    select_photos "$photos/many"
    xdotool key Return
    take_batch loading
    type_shift 0 Tab Tab Tab 1
    point_at_fix
    click_mouse
    take_batch fixing
}

# All photos of the load fail, more than the screen has lines.
shoot_many_failures() {
    select_photos "$photos/many"
    xdotool key Return
    sleep 2
    wait_until is_active "$main"
    rm "$photos/many/"*.JPG
    point_at_fix
    click_mouse
    sleep 2
    find_dialog_over "$main"
    take failure_many "$dialog"
    close_dialog_over "$main"
}

# --- Runs -------------------------------------------------------------------------------------

start_program() {
    mkdir -p "$HOME/.config/Vorrin"
    printf '[General]\nlang=%s\n' "$language" >"$HOME/.config/Vorrin/Kelvra.conf"
    QT_SCALE_FACTOR=$scale "$tree/build/release/bin/kelvra" \
        >"$scratch/stdout.txt" 2>"$scratch/stderr.txt" &
    program=$!
    find_main_window
}

# The window manager closes the window, so that the program ends on its own.
end_program() {
    xdotool key alt+F4
    wait "$program"
    # Qt queries the windows below the mouse, one of which may just have closed.
    if grep -v "XCB error: 3 (BadWindow).*(TranslateCoords)" "$scratch/stderr.txt" >&2; then
        echo "the program wrote this to its standard error" >&2
        exit 1
    fi
}

# One run of the program. This script calls itself under the virtual display to get here.
shoot_all_screens() {
    language=$1
    scale=$2
    folder=$3
    case $language in
    de) other_language_key=Down ;;
    *) other_language_key=Up ;;
    esac

    # A fixed name, since it can be seen in the pictures.
    scratch=/tmp/kelvra-screenshots
    rm -rf "$scratch"
    mkdir -m 700 "$scratch"
    trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$scratch"' EXIT
    export HOME="$scratch/anna" XDG_RUNTIME_DIR="$scratch"
    photos=$HOME/Pictures
    make_photos "$photos"
    start_window_manager
    start_program

    shoot_empty_window
    shoot_settings
    shoot_about
    shoot_report
    shoot_photos
    shoot_warnings
    shoot_failure
    shoot_batches
    shoot_many_failures
    end_program
}

if [ "${1:-}" = --under-display ]; then
    shoot_all_screens "$2" "$3" "$4"
    exit
fi

cd "$tree"
tools/install_packages.sh build manual screenshots
cmake --preset release
cmake --build --preset release --target kelvra
for language in en de; do
    for scale in 1 1.5 2; do
        folder=$tree/build/screenshots/$language-${scale}x
        rm -rf "$folder"
        mkdir -p "$folder"
        echo "$folder"
        xvfb-run --auto-servernum \
            --server-args="-screen 0 $(display_pixels 2000)x$(display_pixels 1160)x24 -dpi 96" \
            env -u XDG_CONFIG_HOME LC_ALL=C.UTF-8 TZ=UTC \
            "$script" --under-display "$language" "$scale" "$folder"
    done
    mkdir -p "docs/screenshots/$language"
    cp "build/screenshots/$language-1x/"*.png "docs/screenshots/$language/"
done
