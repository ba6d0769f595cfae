# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2034  # the variables belong to the scripts that source this
#
# What the Windows package is made of beside Debian's compilers: Qt, from Debian's source package,
# and ExifTool for Windows, from a package of the npm registry. Both are pinned by version here, and
# by checksum in sources.sha256. What is made of them is kept in a cache folder outside of the tree.
# This file is sourced from the root of the tree, not run.

# To take a newer version, change it here and write the new files' checksums to sources.sha256.
qt_version=5.15.8+dfsg-11+deb12u3
tool_version=13.59.0

cache=${XDG_CACHE_HOME:-$HOME/.cache}/kelvra
parts=build/windows_parts

# Fails unless the files $@ in the current folder are the pinned ones.
checksums=$PWD/packaging/windows/sources.sha256
check_sums() {
    for file in "$@"; do
        grep "  $file\$" "$checksums" | sha256sum --check --quiet --strict
    done
}
