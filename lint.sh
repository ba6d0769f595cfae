#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the sources, and the files made from them by hand, without running a test. Installs missing
# Debian packages first, and lists them.
#
# usage: ./lint.sh          all steps
#        ./lint.sh STEP     one of them
#          whitespace  no line ends with white space or starts with a tab
#          format      C++ is formatted as .clang-format says
#          includes    follow the order of the modules (tools/check_includes.pl)
#          scripts     shellcheck finds nothing, and Perl can parse its scripts
#          documents   agree with the tree (tools/check_documents.pl)
#          desktop     desktop entry and metainfo are valid
#          pictures    the PNG files are what resources/artwork/render.sh makes of their sources
#          clazy       finds no misuse of Qt
#          tidy        clang-tidy finds nothing that .clang-tidy lists
#
# Runs every step and lists the failed ones at the end. Tests and benchmarks are only checked for
# format and includes, the program's sources for everything.
set -eu
cd "$(dirname "$0")"
git rev-parse --git-dir >/dev/null  # the files to check come from git

steps="whitespace format includes scripts documents desktop pictures clazy tidy"

usage() {
    sed -n '4,/^set/s/^# \{0,1\}//p' lint.sh >&2
    exit 2
}

# The files that match these patterns, including untracked ones.
files() {
    git ls-files --cached --others --exclude-standard "$@"
}

program_sources() {
    files 'src/*.cpp' 'orv_toolkit/*.cpp' 'qor/*.cpp'
}

# Headers without a source of their own: nothing else shows that they compile on their own.
lone_headers() {
    files 'src/*.h' 'orv_toolkit/*.h' 'qor/*.h' | while read -r header; do
        [ -e "${header%.h}.cpp" ] || echo "$header"
    done
}

# Runs a tool on the files named on standard input, on all cores. Drops its counts of warnings in
# other projects' headers.
on_each() {
    status=0
    xargs -P "$(nproc)" -n 1 "$@" >"$work/findings" 2>&1 || status=1
    sed '/generated\.$/d' "$work/findings"
    return "$status"
}

prepare_build() {
    cmake --preset lint >"$work/build_log"
    cmake --build --preset lint --target build_versions >"$work/build_log"
}

# Licence texts stay as their authors wrote them. Untracked files aren't checked.
check_whitespace() {
    no_files=$(git hash-object -t tree /dev/null)
    git -c core.whitespace=trailing-space,tab-in-indent diff --check "$no_files" -- . \
        ':!LICENSE' ':!packaging/licenses' ':!packaging/debian/copyright'
}

check_format() {
    files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
}

check_includes() {
    tools/check_includes.pl
}

check_scripts() {
    files '*.sh' .ci | xargs shellcheck
    files '*.pl' | xargs -n 1 perl -c 2>&1
}

check_documents() {
    perl tools/check_documents.pl
}

check_desktop() {
    desktop-file-validate packaging/desktop/example.vorrin.kelvra.desktop
    appstreamcli validate --no-net packaging/desktop/example.vorrin.kelvra.metainfo.xml
}

list_pictures() {
    (cd "$1" && find . -name '*.png' -exec sha256sum {} + | sort -k 2)
}

check_pictures() {
    resources/artwork/render.sh "$work/pictures" >"$work/rendered"
    list_pictures "$work/pictures" >"$work/expected"
    list_pictures resources >"$work/present"
    diff "$work/expected" "$work/present"
}

# no-non-pod-global-static: names of tags and tables are global objects in their sources. None is
# made from another, and nothing reads them before main. Findings fail the step, since the preset
# turns warnings into errors.
check_clazy() {
    prepare_build
    program_sources | on_each clazy-standalone -p build/lint \
        --checks=level1,no-non-pod-global-static --header-filter='/(src|orv_toolkit|qor)/' \
        --extra-arg=-std=c++17 --extra-arg=-Wno-unknown-warning-option
}

check_tidy() {
    prepare_build
    { program_sources && lone_headers; } | on_each clang-tidy -p build/lint --quiet
}

if [ $# -eq 0 ]; then
    failed=""
    for step in $steps; do
        echo "--- $step"
        ./lint.sh "$step" || failed="$failed $step"
    done
    [ -z "$failed" ] || echo "found something:$failed"
    [ -z "$failed" ]
    exit
fi

case " $steps " in
*" $1 "*) [ $# -eq 1 ] || usage ;;
*) usage ;;
esac
tools/install_packages.sh build lint artwork
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
"check_$1"
