#!/bin/sh
# Renders every SVG source below this folder into the PNG of the same relative
# name in the folder above, at the pixel size that the SVG itself states.
#
# Usage: render.sh
#
# Needs rsvg-convert (Debian package librsvg2-bin) and the font family FreeSans
# (Debian package fonts-freefont-ttf). Installs nothing; may be run repeatedly.

set -eu

cd "$(dirname "$0")"

find . -name '*.svg' -exec sh -eu -c '
    for source do
        source=${source#./}
        target=../${source%.svg}.png
        mkdir -p "$(dirname "$target")"
        rsvg-convert --format=png --output="$target" "$source"
        echo "$source -> $target"
    done
' sh {} +
