#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Records the introduction to watch, in English and German: the real program, used with the mouse
# and keys beside a file manager, under a virtual display. Installs missing Debian packages first
# (and lists them), then builds the program.
#
# usage: tools/record_introduction.sh
#
# Saves docs/introduction/introduction_LANGUAGE.webm and a picture from it, and leaves a picture of
# each second in build/introduction/LANGUAGE/ to look at. Fails if a film is too large, too short or
# too long. Only one run at a time is possible: the scratch folder has a fixed name.
set -eu

script=$(realpath "$0")
tree=$(dirname "$(dirname "$script")")
. "$tree/tools/drive_window.sh"

width=1280
height=800
frames_per_second=20
shortest_s=60
longest_s=90
largest_bytes=4000000
scale=1

# --- Photos -----------------------------------------------------------------------------------

# Makes the photo $1: a hill at the sea, the sun at the height that fits the minute $2.
make_photo() {
    sun=$((30 + $2 * 4))
    convert -size 480x320 'gradient:#6f97c4-#e8c28f' -fill '#fff3cf' \
        -draw "circle $((60 + $2 * 9)),$sun $((60 + $2 * 9)),$((sun + 26))" \
        -fill '#3f6478' -draw 'rectangle 0,215 480,320' -fill '#2c3f3a' \
        -draw "polygon 0,320 $((140 + $2 * 5)),160 $((330 + $2 * 5)),320" "jpg:$1"
    exiftool -quiet -overwrite_original "-ExifIFD:DateTimeOriginal=2026:08:14 13:$2:48" \
        "-ExifIFD:CreateDate=2026:08:14 13:$2:48" "$1"
}

# Makes the photos of a slow camera in the folder $1. One of them is write-protected.
make_photos() {
    mkdir -p "$1"
    for minute in 10 14 18 22 26 30 34; do
        make_photo "$1/P10803$minute.JPG" "$minute"
    done
    chmod a-w "$1/P1080322.JPG"
}

# --- Captions ---------------------------------------------------------------------------------

set_captions() {
    case $language in
    en)
        locale=en_GB
        photos_folder="Slow camera"
        about_camera="A holiday with two cameras. This one was an hour and a half slow."
        about_drop="Drop its photos on the window."
        about_times="Each photo is listed with its recording time."
        about_shift="Type the shift: one hour, thirty minutes. The new times follow as you type."
        about_zone="You can type a time zone, too. It never moves the clock time."
        about_fix="One press gives every date that a photo has the new time."
        about_failure="One photo is write-protected. It is named, and stays as it was."
        about_keep="Keep the changes in the others, or undo them."
        about_undo="Changed your mind? The last changes can be undone, once."
        about_again="Load the photos again to see their times. All is as before."
        ;;
    de)
        locale=de_DE
        photos_folder="Langsame Kamera"
        about_camera="Ein Urlaub mit zwei Kameras. Diese ging anderthalb Stunden nach."
        about_drop="Ziehen Sie ihre Fotos auf das Fenster."
        about_times="Zu jedem Foto steht seine Aufnahmezeit in der Liste."
        about_shift="Die Verschiebung: eine Stunde, dreißig Minuten. Die neuen Zeiten folgen beim Tippen."
        about_zone="Auch eine Zeitzone können Sie eingeben. Sie verschiebt die Uhrzeit nie."
        about_fix="Ein Klick gibt jedem Datum, das ein Foto hat, die neue Zeit."
        about_failure="Ein Foto ist schreibgeschützt. Es wird genannt und bleibt, wie es war."
        about_keep="Behalten Sie die Änderungen der anderen, oder machen Sie sie rückgängig."
        about_undo="Doch nicht? Die letzten Änderungen lassen sich einmal rückgängig machen."
        about_again="Laden Sie die Fotos erneut, um ihre Zeiten zu sehen. Alles ist wie zuvor."
        ;;
    esac
}

# The milliseconds since the recording began.
elapsed_ms() {
    echo $(($(date +%s%3N) - begin_ms))
}

# Shows the text $1 from now on, and gives the viewer time to read it.
say() {
    echo "$(elapsed_ms) $1" >>"$scratch/captions"
    sleep 3.4
}

# A time in milliseconds as subtitles have it.
subtitle_time() {
    printf '%d:%02d:%02d.%02d' $(($1 / 3600000)) $(($1 / 60000 % 60)) $(($1 / 1000 % 60)) \
        $(($1 / 10 % 100))
}

# The captions as subtitles in the strip below the windows, each until the next one; the last one
# until $1.
subtitles() {
    cat <<END
[Script Info]
PlayResX: $width
PlayResY: $height

[V4+ Styles]
Format: Name, Fontname, Fontsize, PrimaryColour, OutlineColour, Outline, Alignment, MarginV
Style: Default,FreeSans,32,&H00FFFFFF,&H00202020,1,2,20

[Events]
Format: Start, End, Style, Text
END
    end=$1
    tac "$scratch/captions" | while read -r begin text; do
        echo "Dialogue: $(subtitle_time "$begin"),$(subtitle_time "$end"),Default,$text"
        end=$begin
    done
}

# --- Mouse and keys ---------------------------------------------------------------------------

# Moves the mouse to the point $1, $2 of the screen, slowly enough to follow.
glide() {
    eval "$(xdotool getmouselocation --shell)"
    awk -v from_x="$X" -v from_y="$Y" -v to_x="$1" -v to_y="$2" 'BEGIN {
        for (step = 1; step <= 40; ++step) {
            part = step / 40
            part = part * part * (3 - 2 * part)
            printf "mousemove %d %d\nsleep 0.02\n",
                from_x + (to_x - from_x) * part, from_y + (to_y - from_y) * part
        }
    }' | xdotool -
    sleep 0.3
}

# Moves the mouse to the point $2, $3 of the window $1.
glide_over() {
    glide $(($(window_info "$1" "Absolute upper-left X") + $2)) \
        $(($(window_info "$1" "Absolute upper-left Y") + $3))
}

glide_and_click() {
    glide_over "$@"
    click_mouse
    sleep 0.5
}

type_slowly() {
    xdotool type --delay 300 -- "$1"
    sleep 0.6
}

# --- The film ---------------------------------------------------------------------------------

# A plain window with large pictures.
configure_file_manager() {
    mkdir -p "$HOME/.config/pcmanfm/default" "$HOME/.config/libfm"
    cat >"$HOME/.config/pcmanfm/default/pcmanfm.conf" <<'END'
[ui]
side_pane_mode=hidden;places
view_mode=thumbnail
toolbar=hidden
show_statusbar=0
END
    printf '[ui]\nthumbnail_size=128\n' >"$HOME/.config/libfm/libfm.conf"
}

is_file_manager_up() {
    files=$(xdotool search --onlyvisible --class pcmanfm 2>/dev/null | tail -n 1)
    [ -n "$files" ]
}

open_windows() {
    xsetroot -solid '#3a4046'
    configure_file_manager
    pcmanfm --no-desktop "$photos" 2>"$scratch/files.txt" &
    wait_until is_file_manager_up
    xdotool windowsize --sync "$files" 440 700
    xdotool windowmove "$files" 4 16
    mkdir -p "$HOME/.config/Vorrin"
    printf '[General]\nlang=%s\n' "$language" >"$HOME/.config/Vorrin/Kelvra.conf"
    "$tree/build/release/bin/kelvra" >"$scratch/stdout.txt" 2>"$scratch/stderr.txt" &
    find_main_window
    xdotool windowsize --sync "$main" 800 700
    xdotool windowmove "$main" 474 16
    xdotool mousemove 300 600
    sleep 2
}

# Marks all photos in the file manager and drags them to the program.
drag_photos() {
    glide_over "$files" 70 120
    xdotool windowactivate --sync "$files" key ctrl+a
    sleep 0.8
    xdotool mousedown 1
    glide_over "$main" 137 250
    xdotool mouseup 1
    sleep 1
    xdotool windowactivate "$main"
    wait_until is_active "$main"
    sleep 1
}

# Makes the file manager forget temporary files: it doesn't always notice that they are gone.
reload_files() {
    xdotool key --window "$files" F5
}

play() {
    say "$about_camera"
    say "$about_drop"
    drag_photos
    say "$about_times"
    say "$about_shift"
    glide_and_click "$main" 532 145
    type_slowly 1
    xdotool key Tab
    type_slowly 30
    elapsed_ms >"$scratch/still_ms"
    sleep 1.5
    say "$about_zone"
    xdotool key Tab Tab
    type_slowly 2
    sleep 1
    say "$about_fix"
    glide_and_click "$main" 360 63
    find_dialog_over "$main"
    failure=$dialog
    reload_files
    say "$about_failure"
    sleep 2
    say "$about_keep"
    glide_over "$failure" $(($(window_info "$failure" Width) / 2)) \
        $(($(window_info "$failure" Height) - 24))
    sleep 1
    click_mouse
    wait_until is_active "$main"
    say "$about_undo"
    glide_and_click "$main" 447 63
    wait_until is_active "$main"
    reload_files
    sleep 1
    say "$about_again"
    drag_photos
    sleep 4
}

# --- Recording --------------------------------------------------------------------------------

# One film. This script calls itself under the virtual display to get here.
record() {
    # A fixed name, since it can be seen in the film.
    scratch=/tmp/kelvra-introduction
    rm -rf "$scratch"
    mkdir -m 700 "$scratch"
    trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$scratch"' EXIT
    export HOME="$scratch/anna" XDG_RUNTIME_DIR="$scratch" XCURSOR_THEME=DMZ-White XCURSOR_SIZE=48
    mkdir "$scratch/locales"
    localedef --inputfile="$locale" --charmap=UTF-8 "$scratch/locales/$locale.UTF-8"
    export LOCPATH="$scratch/locales" LC_ALL="$locale.UTF-8"
    photos=$HOME/Pictures/$photos_folder
    make_photos "$photos"
    start_window_manager
    open_windows

    ffmpeg -loglevel error -f x11grab -framerate "$frames_per_second" \
        -video_size "${width}x$height" -i "$DISPLAY" -codec:v libx264 -qp 0 -preset ultrafast \
        "$folder/raw.mkv" </dev/null &
    recorder=$!
    wait_until test -s "$folder/raw.mkv"
    begin_ms=$(date +%s%3N)
    play
    elapsed_ms >"$folder/length_ms"
    kill -INT "$recorder"
    subtitles "$(cat "$folder/length_ms")" >"$folder/captions.ass"
    cp "$scratch/still_ms" "$folder"
    wait "$recorder" || [ $? -eq 255 ]  # what ffmpeg ends with when it is interrupted
}

# Makes the film and its picture from the recording.
finish() {
    film=docs/introduction/introduction_$language.webm
    # The recording ends with the film, but begins earlier.
    ffmpeg -loglevel error -y -sseof "-$(cat "$folder/length_ms")ms" -i "$folder/raw.mkv" \
        -vf "subtitles=$folder/captions.ass" -map_metadata -1 -codec:v libvpx-vp9 -crf 36 -b:v 0 \
        -deadline good -cpu-used 2 -row-mt 1 -pix_fmt yuv420p "$film"
    rm "$folder/raw.mkv"
    ffmpeg -loglevel error -y -ss "$(cat "$folder/still_ms")ms" -i "$film" -frames:v 1 \
        "${film%.webm}.png"
    ffmpeg -loglevel error -i "$film" -vf fps=1 "$folder/%03d.png"
    seconds=$(ffprobe -loglevel error -show_entries format=duration -of csv=p=0 "$film")
    bytes=$(stat --format=%s "$film")
    echo "$film: $seconds seconds, $bytes bytes"
    if [ "${seconds%.*}" -lt "$shortest_s" ] || [ "${seconds%.*}" -ge "$longest_s" ] ||
        [ "$bytes" -gt "$largest_bytes" ]; then
        echo "$film is too short, too long or too large" >&2
        exit 1
    fi
}

if [ "${1:-}" = --under-display ]; then
    language=$2
    folder=$3
    set_captions
    record
    exit
fi

cd "$tree"
tools/install_packages.sh build manual film
cmake --preset release
cmake --build --preset release --target kelvra
mkdir -p docs/introduction
for language in en de; do
    folder=$tree/build/introduction/$language
    rm -rf "$folder"
    mkdir -p "$folder"
    # Even if root runs this, the write-protected photo can't be written.
    set -- "$script" --under-display "$language" "$folder"
    if [ "$(id -u)" -eq 0 ]; then
        set -- setpriv --bounding-set=-dac_override,-dac_read_search "$@"
    fi
    xvfb-run --auto-servernum --server-args="-screen 0 ${width}x${height}x24 -dpi 96" \
        env -u XDG_CONFIG_HOME TZ=UTC "$@"
    finish
done
