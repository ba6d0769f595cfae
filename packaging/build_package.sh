#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds the Debian package from the working tree, and the source archive from the last commit, into
# build/package/. Installs missing Debian packages first, and says which.
#
# usage: packaging/build_package.sh
#
# Needs a full clone. The same commit gives the same bytes, wherever and whenever it is built, as
# long as its tags and the Debian packages are the same.
set -eu
cd "$(dirname "$0")/.."

tools/install_packages.sh build manual package

if [ "$(git rev-parse --show-toplevel)" != "$(pwd -P)" ] ||
    [ "$(git rev-parse --is-shallow-repository)" = true ]; then
    echo "The package needs a full clone: its versions and times come from the commits." >&2
    exit 2
fi
if [ -n "$(git status --porcelain)" ]; then
    echo "The package contains uncommitted changes; the source archive doesn't."
fi

# All times in the packages are the time of the commit.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
umask 022

# The compiler gets the flags that Debian's own packages are built with. The build itself removes
# the path of this folder from the compiler's output, and can do so for any path.
export DEB_BUILD_MAINT_OPTIONS="hardening=+all reproducible=-fixfilepath"
flags_of() {
    dpkg-buildflags --get "$1"
}
CXXFLAGS="$(flags_of CPPFLAGS) $(flags_of CXXFLAGS)"
LDFLAGS=$(flags_of LDFLAGS)
export CXXFLAGS LDFLAGS

rm -rf build/package
cmake --preset package
cmake --build --preset package
cpack --config build/package/CPackConfig.cmake -B build/package

version=$(sed -n 's/^set(CPACK_PACKAGE_VERSION "\(.*\)")/\1/p' build/package/CPackConfig.cmake)
git archive --format=tar.gz --prefix="kelvra-$version/" \
    --output="build/package/kelvra-$version.tar.gz" HEAD
ls -l build/package/*.deb build/package/*.tar.gz
