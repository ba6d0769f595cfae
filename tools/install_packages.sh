#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Installs the Debian packages of these sets that are missing, and lists them.
#
# usage: tools/install_packages.sh SET...
#   build          to build and run Kelvra
#   manual         to make the manual; needs build too
#   test           to run its tests and the virtual displays; needs build too
#   screenshots    to take the pictures of its screens; needs build too
#   browser        to follow the links of the help page; needs build too
#   film           to record the introduction to watch; needs build too
#   clang          the second compiler for Kelvra and its tests
#   coverage       to count the lines that the tests run; needs build and test too
#   bench          to measure speed and memory; needs build too
#   package        to make the Debian package; needs build too
#   check_package  to check that package; needs build and package too
#   windows        to make the Windows package; needs build too
#   check_windows  to check that package; needs build and windows too
#   npm            to fetch from the npm registry
#   roots          to try things in a new Debian root
#   lint           to check the sources; needs build and artwork too
#   artwork        to render the pictures from their sources
set -eu

build_packages="cmake g++ ninja-build qtbase5-dev qttools5-dev qttools5-dev-tools
    libimage-exiftool-perl qttranslations5-l10n fonts-freefont-ttf"
manual_packages="pandoc weasyprint"
test_packages="git libxml2-utils openbox tzdata w3c-sgml-lib x11-utils xauth xdotool xvfb"
screenshot_packages="imagemagick openbox procps x11-utils xauth xdotool xvfb"
browser_packages="chromium chromium-driver imagemagick openbox python3-selenium x11-utils xauth
    xdotool xvfb"
film_packages="dmz-cursor-theme ffmpeg imagemagick libimage-exiftool-perl locales openbox pcmanfm
    util-linux x11-utils x11-xserver-utils xauth xdotool xvfb"
clang_packages="clang"
coverage_packages="gcovr"
bench_packages="libbenchmark-dev xauth xvfb"
package_packages="dpkg-dev file git"
check_package_packages="lintian"
windows_packages="dpkg-dev g++-mingw-w64-x86-64-posix icoutils make nsis perl python3 unzip zip"
check_windows_packages="imagemagick locales openbox wine wine64 x11-utils xauth xdotool xvfb"
root_packages="debootstrap git mount util-linux"
lint_packages="appstream clang-format clang-tidy clazy desktop-file-utils git perl shellcheck"
artwork_packages="fonts-freefont-ttf librsvg2-bin"

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing=""
for set in "$@"; do
    case $set in
    build) packages=$build_packages ;;
    manual) packages=$manual_packages ;;
    test) packages=$test_packages ;;
    screenshots) packages=$screenshot_packages ;;
    browser) packages=$browser_packages ;;
    film) packages=$film_packages ;;
    clang) packages=$clang_packages ;;
    coverage) packages=$coverage_packages ;;
    bench) packages=$bench_packages ;;
    package) packages=$package_packages ;;
    check_package) packages=$check_package_packages ;;
    windows) packages=$windows_packages ;;
    check_windows) packages=$check_windows_packages ;;
    npm) packages=npm ;;
    roots) packages=$root_packages ;;
    lint) packages=$lint_packages ;;
    artwork) packages=$artwork_packages ;;
    *)
        echo "unknown set of packages: $set" >&2
        exit 2
        ;;
    esac
    for package in $packages; do
        is_installed "$package" || missing="$missing $package"
    done
done
[ -n "$missing" ] || exit 0

echo "Installing missing Debian packages:$missing"
as_root=""
if [ "$(id -u)" -ne 0 ]; then
    as_root=sudo
    echo "(sudo may ask for your password)"
fi
$as_root apt-get update
# shellcheck disable=SC2086  # the list is split on purpose
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends $missing
