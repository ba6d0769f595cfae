#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the Debian package of the last commit: built in two folders, it has the same bytes; lintian
# finds nothing; its dependencies are the expected ones; and it is hardened as Debian's packages
# are. Then installs it in a fresh Debian with its dependencies, loads a photo in the installed
# program, fixes it and undoes the fix, and checks that removing the package leaves no files.
# Installs missing Debian packages first, and says which.
#
# usage: packaging/check_package.sh [RELEASE]
#   RELEASE  of the fresh Debian: bookworm (Debian 12, the default) or trixie (Debian 13)
#
# Has to be run by root. The package and the source archive are left in build/package/.
set -eu
cd "$(dirname "$0")/.."
. packaging/fresh_root.sh

release=${1:-bookworm}
case $release in
bookworm | trixie) ;;
*)
    sed -n '4,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

need_root_user
tools/install_packages.sh build package roots check_package

scratch=$(realpath "$(mktemp --directory)")
root=$scratch/root
clean_up() {
    remove_root "$root"
    rm -rf --one-file-system "$scratch"
}
trap clean_up EXIT
trap 'exit 1' HUP INT TERM

# Builds the last commit in the folder $1.
build_in() {
    git clone --quiet --no-hardlinks . "$1"
    "$1/packaging/build_package.sh"
}

build_twice() {
    build_in "$scratch/first"
    (
        umask 077
        export TZ=Asia/Kolkata LC_ALL=C
        build_in "$scratch/another folder/kelvra"
    )
    for file in "$scratch"/first/build/package/*.deb "$scratch"/first/build/package/*.tar.gz; do
        cmp "$file" "$scratch/another folder/kelvra/build/package/$(basename "$file")"
        echo "the same from both folders: $(sha256sum "$file" | cut -c 1-64) $(basename "$file")"
    done
    rm -rf build/package
    mkdir -p build/package
    cp "$scratch"/first/build/package/*.deb "$scratch"/first/build/package/*.tar.gz build/package
    package=$(basename "$scratch"/first/build/package/*.deb)
}

complain() {
    echo "$1" >&2
    exit 1
}

# Only the names, without versions.
check_dependencies() {
    needed=$(dpkg-deb --field "build/package/$package" Depends |
        sed 's/ *([^)]*)//g; s/, */\n/g' | LC_ALL=C sort)
    [ "$needed" = "libc6
libgcc-s1
libimage-exiftool-perl
libqt5core5a
libqt5gui5 | libqt5gui5-gles
libqt5widgets5
libstdc++6
qttranslations5-l10n" ] || complain "the package has other dependencies than expected: $needed"
}

# The program has the signs of Debian's compiler flags, and not the path of the build folder.
check_program() {
    mkdir "$scratch/unpacked"
    dpkg-deb --extract "build/package/$package" "$scratch/unpacked"
    program=$scratch/unpacked/usr/lib/kelvra/kelvra
    LC_ALL=C readelf --wide --file-header --program-headers --dynamic --dyn-syms "$program" \
        >"$scratch/readelf"
    for sign in 'Type: *DYN' GNU_RELRO BIND_NOW __stack_chk_fail '_chk@GLIBC'; do
        grep -q "$sign" "$scratch/readelf" || complain "the program isn't hardened: no $sign"
    done
    ! grep -q "$scratch" "$program" || complain "the program contains the path of its build folder"
}

check_source_archive() {
    tar --list --file "$(echo build/package/*.tar.gz)" >"$scratch/sources"
    for license in LICENSE packaging/licenses/LGPL-3.txt packaging/licenses/FreeSans.txt; do
        grep -q "/$license\$" "$scratch/sources" || complain "the source archive lacks $license"
    done
}

# The files and links of the package, as paths below the root.
files_of_package() {
    dpkg-deb --fsys-tarfile "build/package/$package" | tar --list | grep -v '/$' | cut -c 2-
}

install_package() {
    run_in_root "$root" apt-get install --yes --no-install-recommends "/srv/$package"
}

remove_package() {
    run_in_root "$root" apt-get purge --yes kelvra
}

# The dependencies are installed with the package, and stay for the comparison after its removal.
install_in_fresh_root() {
    make_fresh_root "$root" xauth,xvfb,openbox,x11-utils,xdotool "$release"
    run_in_root "$root" useradd --create-home anna
    cp "build/package/$package" "$root/srv"
    run_in_root "$root" apt-get update
    install_package
    for file in $(files_of_package); do
        run_in_root "$root" test -e "$file" || complain "the installation lacks $file"
    done
}

use_in_root() {
    mkdir -p "$root/srv/packaging" "$root/srv/tools"
    cp packaging/use_installed.sh "$root/srv/packaging"
    cp tools/drive_window.sh "$root/srv/tools"
    run_in_root_as "$root" anna xvfb-run --auto-servernum --server-args="-screen 0 1280x1024x24" \
        /srv/packaging/use_installed.sh
}

# All paths in the root except the records of the package tools and what belongs to users.
list_root() {
    (cd "$root" && find . -xdev \( -path ./home -o -path ./proc -o -path ./tmp -o -path ./srv \
        -o -path ./var/cache -o -path ./var/lib/apt -o -path ./var/lib/dpkg -o -path ./var/log \
        \) -prune -o -print) | LC_ALL=C sort
}

leaves_nothing() {
    remove_package
    list_root >"$scratch/files_before"
    ! grep -i kelvra "$scratch/files_before" || complain "the removal left the files listed above"
    install_package
    use_in_root
    remove_package
    list_root >"$scratch/files_after"
    diff "$scratch/files_before" "$scratch/files_after" ||
        complain "the removal left files over, or removed files of others"
}

build_twice
check_source_archive
check_dependencies
check_program
lintian --fail-on error,warning "build/package/$package"
install_in_fresh_root
leaves_nothing
echo "$package passed all checks."
