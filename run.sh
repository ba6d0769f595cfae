#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds Kelvra and starts it. Installs missing Debian packages first, and lists them.
#
# usage: ./run.sh         the program; without a display the demonstration
#        ./run.sh demo    the demonstration: fixes and undoes three photos that it makes, in the
#                         real window, compares each step with ExifTool's output, and saves
#                         pictures of the steps in build/demo/
set -eu
cd "$(dirname "$0")"

has_display() {
    [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]
}

what=${1:-program}
if [ "$what" = program ] && ! has_display; then
    echo "There is no display: the demonstration runs under a virtual one instead."
    what=demo
fi

build() {
    cmake --preset release
    cmake --build --preset release --target "$1"
}

case $what in
program)
    tools/install_packages.sh build manual
    build kelvra
    exec build/release/bin/kelvra
    ;;
demo)
    tools/install_packages.sh build manual test
    build kelvra_demo
    if has_display; then
        exec build/release/tests/demo/kelvra_demo build/demo
    fi
    exec xvfb-run --auto-servernum --server-args="-screen 0 1280x1024x24" \
        env LC_ALL=C.UTF-8 build/release/tests/demo/kelvra_demo build/demo
    ;;
*)
    sed -n '4,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
