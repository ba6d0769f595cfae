# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2034,SC2154  # some variables belong to the scripts that source this
#
# Runs the Windows package under Wine, and drives its window, on an X display. Scripts source it
# from the root of the tree, with `pictures` set to the folder for their pictures. Needs drag_files
# in build/release.

. tools/drive_window.sh

scale=1
scratch=$(realpath "$(mktemp --directory)")
drag_files=$PWD/build/release/tests/support/drag_files
end_all() {
    wineserver --kill 2>/dev/null || true
    rm -rf --one-file-system "$scratch"
}
trap end_all EXIT
trap 'exit 1' HUP INT TERM

# The user's name has a blank and an umlaut. No .NET, no browser, and no entries in the menu of this
# computer.
export HOME="$scratch/home" USER="Jörg Müller" WINEPREFIX="$scratch/windows" WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export LC_ALL=C.UTF-8 TZ=Europe/Berlin XDG_RUNTIME_DIR="$scratch"
drive=$WINEPREFIX/drive_c
own_folder=$drive/users/$USER
mkdir "$HOME"

# Wine takes the zone from TZ, but the C runtime of Windows can't read it. This starts a program
# without it.
printf '@set TZ=\r\n@start "" %%*\r\n' >"$scratch/start.bat"

# The program that opens pages notes their addresses.
mkdir "$scratch/bin"
cat >"$scratch/bin/xdg-open" <<END
#!/bin/sh
echo "\$1" >>"$scratch/opened"
END
chmod +x "$scratch/bin/xdg-open"
export PATH="$scratch/bin:$PATH"

# Saves a picture of the screen as $1.
take() {
    import -window root "$pictures/$1.png"
}

picture_of_failure() {
    take failure
    echo "see $pictures/failure.png" >&2
}

complain() {
    echo "$1" >&2
    picture_of_failure
    exit 1
}

# --- Windows ----------------------------------------------------------------------------------

# Makes a fresh Windows 10, in which web pages are opened by the program for web addresses.
make_windows() {
    wineserver --kill 2>/dev/null || true
    rm -rf "$WINEPREFIX"
    wine wineboot --init 2>/dev/null
    wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f >/dev/null
    wine reg add 'HKCR\.html' /ve /d htmlfile /f >/dev/null
    wineserver --wait
}

# The name that the file or folder $1 has for Windows.
windows_path() {
    winepath --windows "$1"
}

# The value $2 of the registry's key $1, or nothing.
registry_value() {
    wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_[A-Z]* *//p"
}

runs() {
    pgrep -x "$1" >/dev/null
}

nothing_runs() {
    ! runs kelvra.exe && ! runs exiftool.exe
}

# --- Photos -----------------------------------------------------------------------------------

# Makes the photo $1 with the time $2. The time of the file is one that no step uses.
make_photo() {
    mkdir -p "$(dirname "$1")"
    convert -size 96x64 'gradient:#7f9ab0-#c9b48a' "jpg:$1"
    exiftool -quiet -overwrite_original "-ExifIFD:DateTimeOriginal=$2" "-ExifIFD:CreateDate=$2" \
        "-IFD0:ModifyDate=$2" "-XMP-photoshop:DateCreated=$2" -IFD0:Make=Camera "$1"
    touch --date='2020-01-02 03:04:05' "$1"
}

# All tags in the photos of the folder $1, and the times of the files, as Debian's ExifTool reads
# them; but for the version of ExifTool that wrote them.
all_tags() {
    (
        cd "$1" || exit
        exiftool -a -G1 -s -fileorder filename -System:FileModifyDate -EXIF:all -IPTC:all \
            -XMP:all --XMP-x:all .
    )
}

time_of() {
    exiftool -s3 -ExifIFD:DateTimeOriginal "$1"
}

# Fails unless the photos of the folder $1 have the tags in the file $2.
check_tags() {
    all_tags "$1" | diff "$2" - >&2 || complain "the tags in $1 aren't the expected ones"
}

# Moves the tags of the photo or folder $1 by an hour, and the times of the files to that time, with
# Debian's ExifTool.
move_by_an_hour() {
    exiftool -quiet -overwrite_original -ExifIFD:DateTimeOriginal+=1 -ExifIFD:CreateDate+=1 \
        -IFD0:ModifyDate+=1 -XMP-photoshop:DateCreated+=1 "$1"
    exiftool -quiet '-FileModifyDate<ExifIFD:DateTimeOriginal' "$1"
}

# --- The program ------------------------------------------------------------------------------

# Starts $1, a program or a shortcut by its name for Windows, and waits for its window.
start() {
    wine cmd /c "$(windows_path "$scratch/start.bat")" "$1" >>"$scratch/output" 2>&1 &
    find_main_window
}

close_program() {
    xdotool key alt+F4
    wait_until nothing_runs
}

# Waits until the batch has ended that was just begun.
await_batch() {
    sleep 1
    wait_until is_active "$main"
    sleep 0.5
}

fix() {
    point_at_fix
    click_mouse
    await_batch
}

undo() {
    click_undo
    await_batch
}

# Loads the photos $2... of the folder $1, given by its name for Windows, with the file dialog of
# Windows.
load_by_dialog() {
    folder=$1
    shift
    click_load
    find_dialog_over "$main"
    xdotool type --delay 5 "$folder"
    xdotool key Return
    sleep 1
    xdotool key ctrl+a
    xdotool type --delay 5 "$(printf '"%s" ' "$@")"
    sleep 0.5
    take "$picture"
    xdotool key Return
    await_batch
}

# Drops the files and folders $@ on the area for them.
drop() {
    x=$(($(window_info "$main" "Absolute upper-left X") + $(display_pixels 150)))
    y=$(($(window_info "$main" "Absolute upper-left Y") + $(display_pixels 230)))
    "$drag_files" "$x" "$y" "$@" || complain "the drop was refused: $*"
    xdotool windowactivate "$main"
    await_batch
}
