#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fetches ExifTool for Windows from the npm registry into the cache folder, unless it is there, and
# links it to build/windows_parts/exiftool. Installs npm first, if there is none, and says so.
#
# usage: packaging/windows/fetch_tool.sh
set -eu
cd "$(dirname "$0")/../.."
. packaging/windows/sources.sh

archive=exiftool-vendored.exe-$tool_version.tgz
tool=$cache/exiftool-$tool_version

if [ ! -d "$tool" ]; then
    command -v npm >/dev/null || tools/install_packages.sh npm
    mkdir -p "$cache"
    scratch=$(mktemp --directory "$cache/fetching.XXXXXX")
    trap 'rm -rf "$scratch"' EXIT
    trap 'exit 1' HUP INT TERM
    (
        cd "$scratch"
        npm pack --silent "exiftool-vendored.exe@$tool_version" >/dev/null
        check_sums "$archive"
        tar --extract --file "$archive"
    )
    mv "$scratch/package/bin" "$tool"
fi
mkdir -p "$parts"
ln -sfn "$tool" "$parts/exiftool"
echo "ExifTool for Windows: $tool"
