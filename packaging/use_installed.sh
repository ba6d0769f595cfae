#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Uses the installed program as a user does, with keys and the mouse: loads a photo, moves its time
# by an hour, undoes that, opens the help page, and closes the window. Ends with an error if the photo
# doesn't get the expected times, or doesn't have its original tags at the end, or if a link of the
# help page leads nowhere.
#
# usage: packaging/use_installed.sh
#
# Has to run in a separate home folder with a UTF-8 locale. Needs `kelvra`, an X display, openbox,
# xdotool and xwininfo.
set -eu
# shellcheck source=tools/drive_window.sh
. "$(dirname "$0")/../tools/drive_window.sh"

scale=1
photos=$HOME/Pictures
photo=$photos/one.JPG

make_photo() {
    mkdir -p "$photos"
    base64 --decode >"$photo" <<END
/9j/4AAQSkZJRgABAQEAZABkAAD/2wBDABALDA4MChAODQ4SERATGCgaGBYWGDEjJR0oOjM9PDkzODdASFxOQERXRTc4UG1R
V19iZ2hnPk1xeXBkeFxlZ2P/wAALCAAIAAgBAREA/8QAHwAAAQUBAQEBAQEAAAAAAAAAAAECAwQFBgcICQoL/8QAtRAAAgED
AwIEAwUFBAQAAAF9AQIDAAQRBRIhMUEGE1FhByJxFDKBkaEII0KxwRVS0fAkM2JyggkKFhcYGRolJicoKSo0NTY3ODk6Q0RF
RkdISUpTVFVWV1hZWmNkZWZnaGlqc3R1dnd4eXqDhIWGh4iJipKTlJWWl5iZmqKjpKWmp6ipqrKztLW2t7i5usLDxMXGx8jJ
ytLT1NXW19jZ2uHi4+Tl5ufo6erx8vP09fb3+Pn6/9oACAEBAAA/ACv/2Q==
END
    exiftool -quiet -overwrite_original '-ExifIFD:DateTimeOriginal=2026:08:14 15:10:21' \
        '-ExifIFD:CreateDate=2026:08:14 15:10:21' '-IFD0:Make=Camera' "$photo"
}

all_tags() {
    exiftool -a -G1 -s -EXIF:all -IPTC:all -XMP:all "$photo"
}

has_both_times() {
    [ "$(exiftool -s3 -ExifIFD:DateTimeOriginal -ExifIFD:CreateDate "$photo")" = "$1
$1" ]
}

# Fails unless both links of the help page lead to files.
check_help_page() {
    addresses=$(sed -n 's/.*href="\([^"]*\)".*/\1/p' "$1")
    [ "$(echo "$addresses" | wc -l)" -eq 2 ]
    for address in $addresses; do
        [ -s "${address#file://}" ] || {
            echo "the help page leads to $address, which isn't there" >&2
            exit 1
        }
    done
}

picture_of_failure() {
    all_tags >&2
}

make_photo
tags_before=$(all_tags)
start_window_manager
kelvra &
program=$!
find_main_window

select_photos "$photos"
xdotool key Return
wait_until is_active "$main"
sleep 2

type_shift 0 Tab Tab Tab 1
point_at_fix
click_mouse
wait_until has_both_times "2026:08:14 16:10:21"
echo "fixed: $(exiftool -s3 -ExifIFD:DateTimeOriginal "$photo")"
wait_until is_active "$main"
sleep 0.5

click_undo
wait_until has_both_times "2026:08:14 15:10:21"
echo "undone: $(exiftool -s3 -ExifIFD:DateTimeOriginal "$photo")"
wait_until is_active "$main"
sleep 0.5

help_page=${TMPDIR:-/tmp}/kelvra_help_en.html
click_help
wait_until test -s "$help_page"
check_help_page "$help_page"
echo "the help page leads to: $addresses"

xdotool key alt+F4
wait "$program"
if [ "$(all_tags)" != "$tags_before" ]; then
    echo "after the undo the tags differ from the original ones:" >&2
    all_tags >&2
    exit 1
fi
