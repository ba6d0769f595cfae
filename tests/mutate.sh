#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Measures how strong the tests are: changes one small thing at a time in the sources that hold the
# rules, and counts how many of these mutants the tests notice.
#
# usage: tests/mutate.sh [SEED [COUNT [SOURCE...]]]
#   SEED    picks the changes; the same seed gives the same ones (default 1)
#   COUNT   mutants of each source (default 20; a short source may have less)
#   SOURCE  only these, of the table below
#
# Works in a copy below build/mutants. A change that doesn't compile isn't a mutant. Prints each
# mutant, then the survivors and the share that was caught; fails below 90 percent.
set -euo pipefail
cd "$(dirname "$0")/.."

seed=${1:-1}
count=${2:-20}
[ $# -lt 2 ] || shift
[ $# -eq 0 ] || shift

# The sources, and the tests that concern each, the quickest to notice something first.
sources="
src/exif_cache.cpp exif_cache time_arithmetic table_data_model undo_batch random_records
src/table_data_model.cpp table_data_model time_arithmetic column_sorting table_header header_clicks file_intake german_texts
src/MainWindow_batches.cpp fix_requests fix_warnings fix_batch undo_batch fix_interruptions
src/batch_plan.cpp batch_plan fix_requests undo_batch batch_requests fix_warnings
orv_toolkit/orv/exiftool.cpp tag_writing tag_reading exiftool_pipe exiftool_process missing_tool exiftool_lifetime disturbed_program exiftool_faults batch_progress slow_photos
orv_toolkit/orv/tag_reply.cpp tag_reading random_replies
qor/string.cpp qor_string random_strings
qor/string.h qor_string
qor/qt/layout.cpp layout layout_filling layout_geometry layout_grid layout_passes layout_answers
qor/qt/stylesheet.cpp stylesheet random_sheets
orv_toolkit/orv/button_dark.cpp button_dark img_highlighter button_icon dense_screen main_window_buttons
"

work=build/mutants
tree=$work/tree
build=$work/build
original=$work/original
results=$work/results
memory_limit_kb=4000000

tests_of() {
    echo "$sources" | awk -v source="$1" '$1 == source { $1 = ""; print }'
}

# The working tree as it stands, in the copy; what is the same there stays untouched.
copy_tree() {
    git ls-files --cached --others --exclude-standard | while read -r file; do
        [ -f "$file" ] || continue
        cmp -s "$file" "$tree/$file" && continue
        mkdir -p "$tree/$(dirname "$file")"
        cp "$file" "$tree/$file"
    done
}

build_test() {
    cmake --build "$build" --target "test_$1" >"$work/build_log" 2>&1
}

# A mutant can go on for ever: ctest ends it by the test's own timeout, and the memory is limited.
run_test() (
    ulimit -v "$memory_limit_kb"
    ctest --test-dir "$build" -R "^$1\$" --no-tests=error >"$work/test_log" 2>&1
)

# The first test that is red with the sources in the copy, or nothing. Each is built when its turn
# comes.
first_red_test() {
    for test in $(tests_of "$1"); do
        if ! build_test "$test" || ! run_test "$test"; then
            echo "$test"
            return
        fi
    done
}

# Tries the mutants of one source.
try_source() {
    cp "$tree/$1" "$original"
    tried=0
    first_test=$(tests_of "$1" | awk '{ print $1 }')
    for number in $(tests/mutations.pl pick "$seed" "$original"); do
        [ "$tried" -lt "$count" ] || break
        change=$(tests/mutations.pl apply "$number" "$original" "$tree/$1")
        build_test "$first_test" || continue
        red=$(first_red_test "$1")
        if [ -n "$red" ]; then
            echo "caught   $1 $change (by $red)"
        else
            echo "SURVIVED $1 $change"
        fi | tee -a "$results"
        tried=$((tried + 1))
    done
    cp "$original" "$tree/$1"
}

mkdir -p "$tree"
: >"$results"
copy_tree
cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -Dwarnings_as_errors=OFF \
    >"$work/build_log"
# shellcheck disable=SC2046  # the list is split on purpose
[ $# -gt 0 ] || set -- $(echo "$sources" | cut -d ' ' -f 1)
for source in "$@"; do
    red=$(first_red_test "$source")
    if [ -n "$red" ]; then
        echo "$red is red without a change" >&2
        exit 2
    fi
done
for source in "$@"; do
    try_source "$source"
done

echo
grep '^SURVIVED' "$results" || echo 'no survivors'
awk '$1 == "caught" { ++caught } END {
    printf "%d of %d mutants caught, %.1f percent\n", caught, NR, 100 * caught / NR
    exit caught < 0.9 * NR }' "$results"
