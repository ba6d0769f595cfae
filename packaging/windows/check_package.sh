#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the Windows package of the last commit: built in two folders, the archive has the same
# bytes; it holds what it should, and the program in it is what it should be. Then installs it under
# Wine, uses it, and removes it. Installs missing Debian packages first, and says which.
#
# usage: packaging/windows/check_package.sh
#
# The package is left in build/windows_package/, pictures of each step in build/windows_check/.
set -eu
cd "$(dirname "$0")/../.."

tools/install_packages.sh build test windows check_windows

scratch=$(realpath "$(mktemp --directory)")
trap 'rm -rf --one-file-system "$scratch"' EXIT
trap 'exit 1' HUP INT TERM

libraries_of_wine=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows

complain() {
    echo "$1" >&2
    exit 1
}

# Builds the last commit in the folder $1.
build_in() {
    git clone --quiet --no-hardlinks . "$1"
    "$1/packaging/windows/build_package.sh"
}

build_twice() {
    build_in "$scratch/first"
    (
        umask 077
        export TZ=Asia/Kolkata LC_ALL=C
        build_in "$scratch/another folder/kelvra"
    )
    archive=$(basename "$scratch"/first/build/windows_package/*.zip)
    cmp "$scratch/first/build/windows_package/$archive" \
        "$scratch/another folder/kelvra/build/windows_package/$archive"
    echo "the same from both folders: $(sha256sum "$scratch/first/build/windows_package/$archive")"
    rm -rf build/windows_package
    mkdir -p build/windows_package
    cp "$scratch"/first/build/windows_package/*.zip "$scratch"/first/build/windows_package/*.exe \
        build/windows_package
}

# An installer of version 2.0.1, which has a file that the present version lacks.
build_older() {
    (
        cd "$scratch/another folder/kelvra"
        sed -i 's/^\(project(kelvra VERSION\) [0-9.]*/\1 2.0.1/' CMakeLists.txt
        echo 'install(FILES LICENSE DESTINATION . RENAME older.txt)' >>CMakeLists.txt
        packaging/windows/build_package.sh
    )
    older=$(ls "$scratch/another folder/kelvra"/build/windows_package/*.exe)
}

# Each library that the program and its libraries need is in the package, or comes with Windows, as
# far as Wine knows.
check_libraries() {
    find "$unpacked" -path "$unpacked/exiftool*" -prune -o \( -name '*.exe' -o -name '*.dll' \) \
        -exec x86_64-w64-mingw32-objdump --private-headers {} + |
        sed -n 's/^\tDLL Name: //p' | LC_ALL=C sort --unique >"$scratch/needed"
    while read -r library; do
        lower_case=$(echo "$library" | tr '[:upper:]' '[:lower:]')
        [ -e "$unpacked/$library" ] || [ -e "$libraries_of_wine/$lower_case" ] ||
            complain "the package lacks $library"
    done <"$scratch/needed"
}

# No console, the icon in all sizes, version, manifest, and no path of the build folder.
check_program() {
    program=$unpacked/kelvra.exe
    x86_64-w64-mingw32-objdump --private-headers "$program" >"$scratch/headers"
    grep -q 'Subsystem.*(Windows GUI)' "$scratch/headers" || complain "the program has a console"
    [ "$(wrestool --list --type=icon "$program" | wc -l)" -eq 7 ] ||
        complain "the program hasn't seven sizes of its icon"
    wrestool --extract --raw --type=24 "$program" >"$scratch/manifest"
    for part in 'level="asInvoker"' '>PerMonitor<' '<longPathAware .*>true<' '>UTF-8<'; do
        grep -q "$part" "$scratch/manifest" || complain "the manifest lacks $part"
    done
    wrestool --extract --raw --type=version "$program" | iconv --from-code=utf-16le -c |
        grep -q -a "$version" || complain "the program's version isn't $version"
    ! grep -q "$scratch" "$program" || complain "the program contains the path of its build folder"
}

check_contents() {
    for file in kelvra.exe exiftool.exe exiftool_files/perl.exe .ExifTool_config qt.conf \
        help/introduction_de.webm help/introduction_en.webm help/manual_de.pdf help/manual_en.pdf \
        plugins/platforms/qwindows.dll translations/qt_de.qm sources.txt changes.txt \
        licenses/GPL-3.txt licenses/LGPL-3.txt licenses/FreeSans.txt licenses/Qt.txt \
        licenses/ExifTool.txt licenses/Perl.txt licenses/GCC.txt licenses/MinGW-w64.txt; do
        [ -s "$unpacked/$file" ] || complain "the archive lacks $file"
    done
    while read -r line; do
        grep -q -F "$line" "$unpacked/sources.txt" || complain "sources.txt lacks $line"
    done <packaging/windows/sources.sha256
}

# Runs the command $@ under a virtual display. Permissions hold for it even if root runs this.
on_screen() {
    if [ "$(id -u)" -eq 0 ]; then
        set -- setpriv --bounding-set=-dac_override,-dac_read_search "$@"
    fi
    xvfb-run --auto-servernum --server-args="-screen 0 1280x1024x24 -dpi 96" "$@"
}

build_twice
version=$(echo "$archive" | cut --delimiter=- --fields=2)
unpacked=$scratch/unpacked/kelvra-$version-windows
unzip -q "build/windows_package/$archive" -d "$scratch/unpacked"
check_contents
check_libraries
check_program
build_older
cmake --preset release
cmake --build --preset release --target drag_files
rm -rf build/windows_check
mkdir -p build/windows_check
on_screen packaging/windows/use_installed.sh "build/windows_package/${archive%.zip}.exe" "$older" \
    "$unpacked" build/windows_check
on_screen packaging/windows/try_names.sh "$unpacked" build/windows_check
echo "$archive passed all checks. Its pictures are in build/windows_check/."
