#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Uses the Windows package under Wine as users do, with keys and the mouse: installs it over an
# older version, for all users and for one, starts it from the start menu, loads photos with the
# file dialog and by drops, fixes and undoes them, opens the dialogs, closes it, kills it, and
# uninstalls it. Then uses the portable archive, and takes pictures of the installer's pages. Ends
# with an error if a photo, a file or the registry isn't as it should be.
#
# usage: packaging/windows/use_installed.sh SETUP OLDER_SETUP PORTABLE PICTURES
#   SETUP        the installer
#   OLDER_SETUP  an installer of version 2.0.1
#   PORTABLE     the folder of the unpacked portable archive
#   PICTURES     the folder for pictures of each step
#
# Needs an X display, and drag_files in build/release.
set -eu
cd "$(dirname "$0")/../.."
setup=$(realpath "$1")
older_setup=$(realpath "$2")
portable=$(realpath "$3")
pictures=$(realpath "$4")
version=$(basename "$setup" | cut --delimiter=- --fields=2)
. packaging/windows/drive_wine.sh

uninstall_key='Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelvra'
settings_key='HKCU\Software\Vorrin\Kelvra'
shortcut='Microsoft\Windows\Start Menu\Programs\Kelvra.lnk'

# --- Installation -----------------------------------------------------------------------------

# Writes the names of all files, and the registry, to the file $1, once no program runs. What the
# file dialog and the list of programs remember is part of Windows.
list_windows() {
    wineserver --wait
    (cd "$WINEPREFIX" && find drive_c -path '*/Temp/*' -prune -o -print | LC_ALL=C sort) >"$1"
    sed 's/^\(\[.*\]\) [0-9]*$/\1/; /^#time=/d' "$WINEPREFIX/system.reg" "$WINEPREFIX/user.reg" \
        >>"$1"
}

# Checks the installation that is registered in $1, HKLM or HKCU, and has the folder $2.
check_installation() {
    [ "$(registry_value "$1\\$uninstall_key" DisplayVersion)" = "$version" ] ||
        complain "version $version isn't registered in $1"
    for value in DisplayName DisplayIcon EstimatedSize Publisher QuietUninstallString; do
        [ -n "$(registry_value "$1\\$uninstall_key" $value)" ] || complain "no $value is registered"
    done
    diff --recursive --exclude=uninstall.exe "$portable" "$2" >&2 ||
        complain "the installation differs from the archive"
}

install_for_all_over_older_version() {
    make_windows
    list_windows "$scratch/before"
    wine "$older_setup" /S
    [ -e "$drive/Program Files/Kelvra/older.txt" ] || complain "the older version isn't installed"
    wine "$setup" /S
    check_installation HKLM "$drive/Program Files/Kelvra"
}

# Lines in which Windows may differ after the program was there: its settings, what its dialogs
# remember, what Wine writes on its own, and keys and folders for programs that Windows itself has.
# The uninstaller's own copy goes at the next start.
cat >"$scratch/allowed" <<'END'
[Software\\Vorrin\\Kelvra]
"lang"="de"
"last_load_path"=
[Software\\QtProject\\OrganizationDefaults\\FileDialog]
"history"=
"lastVisited"=
"qtVersion"=
"viewMode"=
[Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Advanced]
[Software\\Microsoft\\Windows NT\\CurrentVersion\\NetworkCards]
@="Display adapters"
@="Monitors"
"DriverDateData"=
"PendingFileRenameOperations"=
[Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall]
END

# Uninstalls what is registered in $1 for $3, AllUsers or CurrentUser, and has the folder $2. Fails if
# more is left than the lines above.
check_uninstallation() {
    command=$(registry_value "$1\\$uninstall_key" QuietUninstallString)
    case $command in
    *"\\Kelvra\\uninstall.exe\" /S /$3") ;;
    *) complain "another command for uninstalling is registered: $command" ;;
    esac
    wine "$2/uninstall.exe" /S "/$3"
    list_windows "$scratch/after"
    left=$(diff "$scratch/before" "$scratch/after" | sed -n 's/^[<>] //p' | grep -v '^$' |
        grep -v -F -f "$scratch/allowed" |
        grep -v -x "drive_c/users/$USER/AppData/Local/Programs" || true)
    [ -z "$left" ] || complain "the uninstallation left or took: $left"
}

# Pictures of the installer's pages in the language of the locale $1, generated here.
take_installer() {
    mkdir -p "$scratch/locales"
    localedef --inputfile="$1" --charmap=UTF-8 "$scratch/locales/$1.UTF-8"
    wineserver --kill || true
    LOCPATH="$scratch/locales" LC_ALL="$1.UTF-8" wine "$setup" &
    wait_until is_installer_up
    sleep 2
    take "installer_$1_users"
    xdotool key Return
    sleep 1
    take "installer_$1_folder"
    xdotool key Return
    wait_until test -e "$drive/Program Files/Kelvra/uninstall.exe"
    sleep 5
    take "installer_$1_end"
    xdotool key Return
    wait_until nothing_installs
}

is_installer_up() {
    xdotool search --onlyvisible --name 'Kelvra.*Setup|Installation von Kelvra' >/dev/null 2>&1
}

nothing_installs() {
    ! is_installer_up
}

# --- Use --------------------------------------------------------------------------------------

# Makes P1.jpg to P3.jpg in the folder $1.
make_photos() {
    for number in 1 2 3; do
        make_photo "$1/P$number.jpg" "2026:08:14 15:1$number:21"
    done
}

# Writes the tags that the photos of the folder $1 would have an hour later, by Debian's ExifTool,
# to the file $2.
expect_hour_later() {
    rm -rf "$scratch/copies"
    cp --recursive --preserve "$1" "$scratch/copies"
    move_by_an_hour "$scratch/copies"
    all_tags "$scratch/copies" >"$2"
}

# Moves the loaded photos of the folder $1 by an hour and undoes that. Takes pictures with names that
# begin with $2.
fix_and_undo() {
    all_tags "$1" >"$scratch/old"
    expect_hour_later "$1" "$scratch/new"
    type_shift 0 Tab Tab Tab 1
    take "$2_preview"
    fix
    check_tags "$1" "$scratch/new"
    undo
    check_tags "$1" "$scratch/old"
    take "$2_undone"
}

use_dialog() {
    photos=$scratch/photos
    make_photos "$photos"
    picture=file_dialog
    load_by_dialog "$(windows_path "$photos")" P1.jpg P2.jpg P3.jpg
    fix_and_undo "$photos" dialog
}

# From a folder of the user, whose name has a blank and an umlaut. $1 names the pictures.
use_drop() {
    make_photos "$own_folder/Pictures"
    drop "$own_folder/Pictures"
    fix_and_undo "$own_folder/Pictures" "$1"
}

# The file dialog of Wine opens no folders of other computers, so this asks the installed tool for a
# photo in such a folder, by the name that the program would send.
check_share() {
    make_photos "$scratch/share"
    mkdir -p "$WINEPREFIX/dosdevices/unc/server"
    ln -s "$scratch/share" "$WINEPREFIX/dosdevices/unc/server/share"
    time=$(wine "$drive/Program Files/Kelvra/exiftool.exe" -s3 -ExifIFD:DateTimeOriginal \
        //server/share/P1.jpg 2>/dev/null | tr -d '\r')
    [ "$time" = "2026:08:14 15:11:21" ] || complain "a photo on a share has the time '$time'"
}

# Names of more than 260 characters.
use_long_path() {
    part=abcdefghijklmnopqrstuvwxyz0123456789
    long=$scratch/$part/$part/$part/$part/$part/$part/$part/$part
    make_photos "$long"
    drop "$long"
    fix_and_undo "$long" long
}

# One photo is read-only, one open in another program, so only the first can be written.
use_locked_photos() {
    locked=$scratch/locked
    make_photos "$locked"
    all_tags "$locked" >"$scratch/old"
    chmod a-w "$locked/P2.jpg"
    printf '@ping -n 60 127.0.0.1 <%s >nul\r\n' "$(windows_path "$locked/P3.jpg")" \
        >"$scratch/hold.bat"
    wine cmd /c "$(windows_path "$scratch/hold.bat")" >/dev/null 2>&1 &
    drop "$locked"
    type_shift 0 Tab Tab Tab 1
    point_at_fix
    click_mouse
    find_dialog_over "$main"
    sleep 1
    find_dialog_over "$main"
    take locked
    [ "$(time_of "$locked/P1.jpg") $(time_of "$locked/P2.jpg") $(time_of "$locked/P3.jpg")" = \
        "2026:08:14 16:11:21 2026:08:14 15:12:21 2026:08:14 15:13:21" ] ||
        complain "not exactly the first of the locked photos was written"
    xdotool key Escape
    await_batch
    check_tags "$locked" "$scratch/old"
    pkill -x ping.exe || true
}

change_language() {
    click_settings
    find_dialog_over "$main"
    settings=$dialog
    click "$settings" -60 20
    sleep 0.5
    take settings
    xdotool key Up Return Escape
    sleep 0.5
    find_dialog_over "$settings"
    take language_changed
    xdotool key Return
    wait_until is_active "$main"
    [ "$(registry_value "$settings_key" lang)" = de ] || complain "the language isn't stored"
}

open_dialogs() {
    click_about
    find_dialog_over "$main"
    take "about_$1"
    close_dialog_over "$main"
    xdotool key ctrl+shift+g
    find_dialog_over "$main"
    take "report_$1"
    close_dialog_over "$main"
}

# Opens the help page, in the language $1, of the program in the folder $2; its links have to lead to
# that folder. The program that opens pages for Windows is one of this computer; here it notes the
# page.
open_help() {
    click_help
    wait_until test -s "$scratch/opened"
    grep -q "kelvra_help_$1.html" "$scratch/opened" || complain "another page was opened"
    rm "$scratch/opened"
    page=$(find "$own_folder" -name "kelvra_help_$1.html")
    for file in "introduction_$1.webm" "manual_$1.pdf"; do
        address=$(sed -n "s,.*href=\"file:///\([^\"]*$file\)\".*,\1,p" "$page")
        ! echo "$address" | grep -q '&[^a]' || complain "the link $address isn't escaped"
        target=$(winepath --unix "$(decoded "$address")")
        [ "$(realpath "$target")" = "$(realpath "$2/help/$file")" ] ||
            complain "the help page leads to $address"
    done
}

# Decodes the link $1 of a web page.
decoded() {
    echo "$1" | perl -pe 's/&amp;/&/g; s/%(..)/chr hex $1/ge'
}

# ExifTool ends with the program, but not if the program is killed: then it has to be ended by hand,
# and until then the installer refuses to replace it.
kill_program() {
    make_photos "$scratch/killed"
    drop "$scratch/killed"
    runs exiftool.exe || complain "no ExifTool runs"
    pkill -KILL -x kelvra.exe
    sleep 5
    runs exiftool.exe || complain "ExifTool ended by itself after a kill: the documents say otherwise"
    ! wine "$setup" /S || complain "the installer replaced a running ExifTool"
    pkill -KILL -x exiftool.exe
    wait_until nothing_runs
}

# --- Steps ------------------------------------------------------------------------------------

use_for_all_users() {
    install_for_all_over_older_version
    start "C:\\ProgramData\\$shortcut"
    take started
    open_dialogs en
    open_help en "$drive/Program Files/Kelvra"
    use_dialog
    use_drop drop
    check_share
    use_long_path
    use_locked_photos
    change_language
    close_program

    start "C:\\ProgramData\\$shortcut"
    take started_in_german
    open_dialogs de
    open_help de "$drive/Program Files/Kelvra"
    kill_program
    check_uninstallation HKLM "$drive/Program Files/Kelvra" AllUsers
}

# The program's folder is then one of the user, with a blank and an umlaut.
use_for_one_user() {
    make_windows
    list_windows "$scratch/before"
    folder=$own_folder/AppData/Local/Programs/Kelvra
    wine "$setup" /S /CurrentUser
    check_installation HKCU "$folder"
    start "$(windows_path "$own_folder")\\AppData\\Roaming\\$shortcut"
    use_drop one_user
    close_program
    check_uninstallation HKCU "$folder" CurrentUser
}

# From another folder than it was unpacked into, at another scale.
use_portable() {
    make_windows
    cp --recursive "$portable" "$scratch/Kelvra & ä"
    scale=1.5
    export WINEQT_SCALE_FACTOR=$scale
    start "$(windows_path "$scratch/Kelvra & ä/kelvra.exe")"
    use_drop portable
    open_help en "$scratch/Kelvra & ä"
    close_program
    scale=1
    unset WINEQT_SCALE_FACTOR
}

start_window_manager
use_for_all_users
use_for_one_user
use_portable
make_windows
take_installer en_US
rm -r "$drive/Program Files/Kelvra"
take_installer de_DE
