#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds Qt for Windows from Debian's source package, and links it to build/windows_parts/qt. It is
# kept in a cache folder under the name of its version and options, and built only if it isn't there
# yet. Installs missing Debian packages first, and lists them.
#
# usage: packaging/windows/build_qt.sh
#
# Building takes a quarter of an hour or more, and 2 GB of disk space meanwhile.
set -eu
cd "$(dirname "$0")/../.."
. packaging/mirrors.sh
. packaging/windows/sources.sh

tools/install_packages.sh windows

# The source package has all libraries that Qt brings along but wintab.h, which only tablets need.
# The program loads only PNG pictures. Its path on this computer isn't written into the libraries.
options="-opensource -confirm-license -release -shared
    -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32- -prefix C:/Kelvra
    -nomake examples -nomake tests -no-opengl -no-dbus -no-icu -no-openssl
    -qt-zlib -qt-libpng -qt-freetype -qt-harfbuzz -qt-pcre -qt-doubleconversion
    -no-libjpeg -no-gif -no-ico
    -no-feature-tabletevent -no-feature-sql -no-feature-network -no-feature-concurrent
    -no-feature-printer"
compiler=$(x86_64-w64-mingw32-g++-posix -dumpfullversion)
recipe=$(echo "$qt_version $compiler $options" | sha256sum | cut -c 1-12)
qt=$cache/qt-$qt_version-$recipe

# Fetches the source package into this folder, with lists of packages of its own: the lists of this
# computer needn't name sources.
fetch_source() {
    mkdir -p lists/partial archives/partial
    cat >sources.list <<END
deb-src $debian_mirror bookworm main
deb-src $security_mirror bookworm-security main
END
    set -- -o Dir::Etc::SourceList="$PWD/sources.list" -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::State::Lists="$PWD/lists" -o Dir::Cache="$PWD" -o APT::Sandbox::User=
    apt-get "$@" update
    apt-get "$@" source --download-only "qtbase-opensource-src=$qt_version"
    check_sums "qtbase-opensource-src_$qt_version.dsc" \
        "qtbase-opensource-src_${qt_version%-*}.orig.tar.xz" \
        "qtbase-opensource-src_$qt_version.debian.tar.xz"
    dpkg-source --no-check --extract "qtbase-opensource-src_$qt_version.dsc" source
}

build() {
    mkdir build
    cd build
    # shellcheck disable=SC2086  # the list is split on purpose
    ../source/configure $options -extprefix "$qt.new"
    make --silent --jobs="$(nproc)"
    make --silent install
    cp ../source/debian/copyright "$qt.new/copyright"
}

if [ ! -d "$qt" ]; then
    mkdir -p "$cache"
    scratch=$(mktemp --directory "$cache/building.XXXXXX")
    trap 'rm -rf "$scratch" "$qt.new"' EXIT
    trap 'exit 1' HUP INT TERM
    (
        cd "$scratch"
        fetch_source
        build
    )
    mv "$qt.new" "$qt"
fi
mkdir -p "$parts"
ln -sfn "$qt" "$parts/qt"
echo "Qt for Windows: $qt"
