#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Loads, fixes and undoes photos with names of several alphabets under Wine, in a folder with names
# of one to three letters: each photo has to get its own time, and no other file may change. Does so
# with the program as it is, and then without the UTF-8 that its manifest asks for, in the code
# pages 1252 and 932.
#
# usage: packaging/windows/try_names.sh PORTABLE PICTURES
#   PORTABLE  the folder of the unpacked portable archive
#   PICTURES  the folder for pictures of each step
#
# Needs an X display, and drag_files in build/release.
set -eu
cd "$(dirname "$0")/../.."
portable=$(realpath "$1")
pictures=$(realpath "$2")
. packaging/windows/drive_wine.sh

photos=$scratch/photos
program=$scratch/portable

# Names with letters that English doesn't have, and short names that they might be taken for.
foreign_names="ä äh Ж Жук 日 日本 本日中 😀"
plain_names="a ab abc abcd"

make_photos() {
    rm -rf "$photos"
    minute=10
    for name in $foreign_names $plain_names; do
        make_photo "$photos/$name.jpg" "2026:08:14 15:$minute:00"
        minute=$((minute + 1))
    done
}

# Moves all tags of the photos with foreign names by an hour, with Debian's ExifTool, and writes
# what all photos then have to the file $1.
expect_foreign_photos_later() {
    rm -rf "$scratch/copies"
    cp --recursive --preserve "$photos" "$scratch/copies"
    for name in $foreign_names; do
        move_by_an_hour "$scratch/copies/$name.jpg"
    done
    all_tags "$scratch/copies" >"$1"
}

sums_of_plain_photos() {
    for name in $plain_names; do
        sha256sum "$photos/$name.jpg"
    done
}

# Takes the request for UTF-8 out of the program's manifest.
ask_for_no_code_page() {
    sed -i 's/activeCodePage/inactiveCodePg/g' "$program/kelvra.exe"
    ! grep -q activeCodePage "$program/kelvra.exe" || complain "the manifest still asks for UTF-8"
}

# Generates the locale $1, whose code page Wine then uses.
use_locale() {
    mkdir -p "$scratch/locales"
    localedef --inputfile="$1" --charmap=UTF-8 "$scratch/locales/$1.UTF-8"
    export LOCPATH="$scratch/locales" LC_ALL="$1.UTF-8"
    wineserver --kill || true
}

# Drops the photos with foreign names only, then all.
try_names() {
    make_photos
    all_tags "$photos" >"$scratch/old"
    expect_foreign_photos_later "$scratch/new"
    sums_of_plain_photos >"$scratch/sums"
    start "$(windows_path "$program/kelvra.exe")"
    set --
    for name in $foreign_names; do
        set -- "$@" "$photos/$name.jpg"
    done
    drop "$@"
    type_shift 0 Tab Tab Tab 1
    take "names_$code_page"
    fix
    check_tags "$photos" "$scratch/new"
    undo
    check_tags "$photos" "$scratch/old"
    sums_of_plain_photos | cmp - "$scratch/sums" || complain "photos that weren't loaded changed"

    cp --recursive --preserve "$photos" "$scratch/all"
    move_by_an_hour "$scratch/all"
    all_tags "$scratch/all" >"$scratch/new"
    rm -rf "$scratch/all"
    drop "$photos"
    take "names_${code_page}_all"
    type_shift 0 Tab Tab Tab 1
    fix
    check_tags "$photos" "$scratch/new"
    undo
    check_tags "$photos" "$scratch/old"
    close_program
}

start_window_manager
make_windows
cp --recursive "$portable" "$program"
code_page=utf8
try_names
ask_for_no_code_page
use_locale de_DE
code_page=1252
try_names
use_locale ja_JP
code_page=932
try_names
