#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the Debian package of the last commit: built in two folders it has the same bytes, lintian
# finds nothing, and in a fresh Debian 12 it is installed with all that it needs, a photo is loaded,
# fixed and undone in the installed program, and its removal leaves nothing. Installs missing Debian
# packages first, and says which.
#
# usage: packaging/check_package.sh
#
# Is run by root. The package and the source archive are left in build/package/.
set -eu
cd "$(dirname "$0")/.."
. packaging/fresh_root.sh

need_root_user
packaging/install_packages.sh build package roots check_package

scratch=$(mktemp --directory)
root=$scratch/root
clean_up() {
    remove_root "$root"
    rm -rf "$scratch"
}
trap clean_up EXIT
trap 'exit 1' INT TERM

# Leaves in $1 what the last commit gives when it is built there.
build_in() {
    git clone --quiet --no-hardlinks . "$1"
    "$1/packaging/build_package.sh"
}

build_twice() {
    build_in "$scratch/first"
    build_in "$scratch/another folder/kelvra"
    for file in "$scratch"/first/build/package/*.deb "$scratch"/first/build/package/*.tar.gz; do
        cmp "$file" "$scratch/another folder/kelvra/build/package/$(basename "$file")"
        echo "the same from both folders: $(sha256sum "$file" | cut -c 1-64) $(basename "$file")"
    done
    mkdir -p build/package
    cp "$scratch"/first/build/package/*.deb "$scratch"/first/build/package/*.tar.gz build/package
    package=$(basename "$scratch"/first/build/package/*.deb)
}

# The files and links of the package, as paths below the root.
files_of_package() {
    dpkg-deb --fsys-tarfile "build/package/$package" | tar --list | grep -v '/$' | cut -c 2-
}

install_in_fresh_root() {
    make_fresh_root "$root" xauth,xvfb,openbox,xdotool
    run_in_root "$root" useradd --create-home anna
    cp "build/package/$package" "$root/srv"
    run_in_root "$root" apt-get update
    run_in_root "$root" apt-get install --yes --no-install-recommends "/srv/$package"
    for file in $(files_of_package); do
        [ -e "$root$file" ] || run_in_root "$root" test -e "$file"
    done
}

use_in_root() {
    mkdir -p "$root/srv/packaging" "$root/srv/tests/support"
    cp packaging/use_installed.sh "$root/srv/packaging"
    cp tests/support/drive_window.sh "$root/srv/tests/support"
    run_in_root_as "$root" anna xvfb-run --auto-servernum --server-args="-screen 0 1280x1024x24" \
        /srv/packaging/use_installed.sh
}

# What users keep in their homes stays theirs.
remove_from_root() {
    rm -r "$root/srv"
    run_in_root "$root" apt-get purge --yes kelvra
    for file in $(files_of_package); do
        if [ -e "$root$file" ] || [ -L "$root$file" ]; then
            echo "the removal left $file" >&2
            exit 1
        fi
    done
    left=$(find "$root" -xdev -path "$root/home" -prune -o -path "$root/proc" -prune \
        -o -iname '*kelvra*' -print)
    if [ -n "$left" ]; then
        echo "the removal left: $left" >&2
        exit 1
    fi
}

build_twice
lintian --fail-on error,warning "build/package/$package"
install_in_fresh_root
use_in_root
remove_from_root
echo "$package holds what it should."
