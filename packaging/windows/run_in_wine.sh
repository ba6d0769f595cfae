#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs a program for Windows from the build folder under Wine, with Qt and the compiler's libraries.
# ctest starts the tests of the preset `windows` by it.
#
# usage: packaging/windows/run_in_wine.sh PROGRAM [ARGUMENT...]
set -eu
parts=$(realpath "$(dirname "$0")/../../build/windows_parts")

# The folder of the compiler's library $1.
folder_of() {
    dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name="$1")"
}

# Wine makes WINEPATH and variables beginning with WINEQT_ known to the program, without the "WINE".
WINEPATH="Z:$parts/qt/bin;Z:$(folder_of libstdc++-6.dll);Z:$(folder_of libwinpthread-1.dll)"
export WINEPATH
export WINEQT_QPA_PLATFORM="${QT_QPA_PLATFORM:-windows}" WINEQT_PLUGIN_PATH="Z:$parts/qt/plugins"
# Without this, Windows programs send messages and results of tests to a debugger.
export WINEQT_FORCE_STDERR_LOGGING=1
export WINEQT_QPA_FONTDIR=Z:/usr/share/fonts/truetype/freefont
export WINEPREFIX="${WINEPREFIX:-$parts/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
# No .NET, no browser, no entries in the menu of this computer.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

# A metadata tool that outlives its program would keep ctest waiting for the end of its output.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
status=0
wine "$@" >"$output" 2>&1 || status=$?
tr -d '\r' <"$output"
exit $status
