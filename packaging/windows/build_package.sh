#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds the Windows package from the working tree, as a portable archive and as an installer, into
# build/windows_package/. Fetches and builds what it is made of if that isn't there yet, installs
# missing Debian packages, and says which.
#
# usage: packaging/windows/build_package.sh
#
# Needs a full clone. The same commit gives the same bytes of the archive, wherever and whenever it
# is built, as long as the Debian packages are the same.
set -eu
cd "$(dirname "$0")/../.."

tools/install_packages.sh build manual windows
packaging/windows/build_qt.sh
packaging/windows/fetch_tool.sh

# All times in the archive and in the program are the time of the commit.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=UTC
umask 022

folder=build/windows_package
rm -rf "$folder"
cmake --preset windows -B "$folder" -DBUILD_TESTING=OFF
cmake --build "$folder"
cpack --config "$folder/CPackConfig.cmake" -B "$folder"

# CPack's archive has the files in the order of the file system.
archive=$(realpath "$folder"/*.zip)
unzip -q "$archive" -d "$folder/unpacked"
rm "$archive"
(cd "$folder/unpacked" && find . -type f | LC_ALL=C sort | zip -q -X -9 "$archive" -@)
ls -l "$folder"/*.zip "$folder"/*.exe
