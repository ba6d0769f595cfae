#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Opens the help page from the real program, in both languages, and follows its links in a browser
# without a window: one has to show the manual, the other to play the introduction. Installs missing
# Debian packages first (and lists them), then builds the program.
#
# usage: tools/follow_help_links.sh
#
# Saves a picture of what the browser shows in build/help_links/.
set -eu

script=$(realpath "$0")
tree=$(dirname "$(dirname "$script")")
. "$tree/tools/drive_window.sh"
scale=1
folder=$tree/build/help_links

# Presses the help button in the language $1; stores the address of the page in `page`.
open_help() {
    mkdir -p "$HOME/.config/Vorrin"
    printf '[General]\nlang=%s\n' "$1" >"$HOME/.config/Vorrin/Kelvra.conf"
    "$tree/build/release/bin/kelvra" &
    program=$!
    find_main_window
    click_help
    wait_until test -s "$scratch/opened"
    page=$(cat "$scratch/opened")
    rm "$scratch/opened"
    xdotool key alt+F4
    wait "$program"
}

# This script calls itself under the virtual display to get here.
follow_links() {
    scratch=$(realpath "$(mktemp --directory)")
    trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$scratch"' EXIT
    mkdir "$scratch/home" "$scratch/bin" "$scratch/temporary"
    export HOME="$scratch/home" TMPDIR="$scratch/temporary" XDG_RUNTIME_DIR="$scratch"
    # The program that opens pages for the desktop notes their addresses.
    cat >"$scratch/bin/xdg-open" <<END
#!/bin/sh
echo "\$1" >"$scratch/opened"
END
    chmod +x "$scratch/bin/xdg-open"
    PATH=$scratch/bin:$PATH
    start_window_manager
    for language in en de; do
        open_help "$language"
        /usr/bin/python3 "$tree/tools/follow_links.py" "$page" "$folder/$language"
    done
}

if [ "${1:-}" = --under-display ]; then
    follow_links
    exit
fi

cd "$tree"
tools/install_packages.sh build manual browser
cmake --preset release
cmake --build --preset release --target kelvra
rm -rf "$folder"
mkdir -p "$folder"
xvfb-run --auto-servernum --server-args="-screen 0 1280x1024x24" \
    env -u XDG_CONFIG_HOME LC_ALL=C.UTF-8 "$script" --under-display
