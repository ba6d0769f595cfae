#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Renders the SVG sources below this folder into PNG files in the folder above:
#
#   images/, gui/   NAME.png at the pixel size that the source states, and NAME@2x.png at twice that
#                   size, for screens with two device pixels per pixel. NAME@2x.png comes from
#                   NAME@2x.svg if the shape needs a separate drawing, otherwise from NAME.svg. The
#                   nine-slice pictures have no such variant, since their edge is always three
#                   pixels wide.
#   icons/          the icon theme, with a folder SIZE for each size and a folder SIZE@2 for such
#                   screens
#   program_icon/   the sizes of the program icon; the small ones have their own sources
#
# usage: render.sh [FOLDER]  into that folder instead of the one above
#
# Installs missing Debian packages first.
set -eu
[ $# -eq 0 ] || mkdir -p "$1"
target_folder=$(cd "${1:-$(dirname "$0")/..}" && pwd)
cd "$(dirname "$0")"

../../tools/install_packages.sh artwork

# Renders the source $1 to $2 in the target folder, with the options that follow.
render() {
    source=$1
    target=$target_folder/$2
    shift 2
    mkdir -p "$(dirname "$target")"
    rsvg-convert --format=png --output="$target" "$@" "$source"
    echo "$source -> $target"
}

render_picture() {
    name=${1%.svg}
    render "$1" "$name.png"
    case $name in
    gui/button/* | gui/panel/*) ;;
    *)
        if [ -e "$name@2x.svg" ]; then
            render "$name@2x.svg" "$name@2x.png"
        else
            render "$1" "$name@2x.png" --zoom=2
        fi
        ;;
    esac
}

for source in images/*.svg gui/*.svg gui/*/*.svg; do
    case $source in
    *@2x.svg) ;;
    *) render_picture "$source" ;;
    esac
done

for source in icons/orv/*/*.svg; do
    name=$(basename "$source" .svg)
    folder=$(dirname "$source")
    render "$source" "$folder/$name.png"
    render "$source" "$folder@2/$name.png" --zoom=2
done

for size in 16 24 32; do
    render "program_icon/kelvra-$size.svg" "program_icon/kelvra-$size.png"
done
for size in 48 64 128 256; do
    render program_icon/kelvra.svg "program_icon/kelvra-$size.png" --width="$size" --height="$size"
done
