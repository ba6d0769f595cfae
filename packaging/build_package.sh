#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds the Debian package from the tree as it stands, and packs the source archive of the last
# commit, into build/package/. Installs missing Debian packages first, and says which.
#
# usage: packaging/build_package.sh
#
# Needs a full clone. The same commit gives the same bytes, wherever and whenever it is built, as
# long as its tags and the packages of Debian are the same.
set -eu
cd "$(dirname "$0")/.."

tools/install_packages.sh build package

if [ "$(git rev-parse --show-toplevel)" != "$(pwd -P)" ] ||
    [ "$(git rev-parse --is-shallow-repository)" = true ]; then
    echo "The package is built in a full clone: its versions and times come from the commits." >&2
    exit 2
fi
if [ -n "$(git status --porcelain)" ]; then
    echo "The package holds changes that aren't committed; the source archive doesn't."
fi

# All times in the packages are that of the commit.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
umask 022

# The compiler is told what Debian's own packages are built with. The path of this folder is taken
# out of what it writes by the build itself, which takes any path.
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
