#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Measures how strong the tests are: makes one small change at a time to the sources, and counts
# how many of these mutants the tests notice.
#
# usage: tools/mutate.sh [SEED [COUNT [SOURCE...]]]
#          mutants of these sources, or of all in the table below, against the tests listed there
#        tools/mutate.sh random COUNT SEED
#          mutants drawn at random from all sources of the program, against all tests
#
#   SEED    picks the changes; the same seed gives the same ones (default 1)
#   COUNT   mutants of each source (default 20; a short source may have fewer), or of all together
#
# Works in a copy below build/mutants. A change with which the program doesn't compile isn't a
# mutant; one with which a test doesn't compile counts as caught. A test has to fail twice. Prints
# each mutant, then the survivors and the share that was caught; fails below 90 percent. A mutant
# that behaves like the original survives too, so read the output.
set -euo pipefail
cd "$(dirname "$0")/.."

# The sources, each with its tests, starting with the one that notices changes fastest.
sources="
src/exif_cache.cpp exif_cache row_times table_data_model undo_batch random_records
src/table_data_model.cpp table_data_model row_times column_sorting table_header header_clicks file_intake german_texts
src/MainWindow_batches.cpp fix_requests fix_warnings fix_batch undo_batch fix_interruptions slow_photos
src/core/batch_plan.cpp batch_plan fix_requests undo_batch batch_requests fix_warnings
src/core/photo_record.cpp exif_cache batch_plan table_data_model
src/batch_progress.cpp batch_progress fix_interruptions load_interruptions slow_photos painted_load
src/photo_table.cpp photo_table painted_load file_intake
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

# The source's tests in the table, and the test named after it.
tests_of() {
    echo "$sources" | awk -v source="$1" '$1 == source { $1 = ""; print }'
    named=$(basename "$1" | sed 's/\..*//')
    [ -z "$(git ls-files "tests/*/test_$named.cpp")" ] || echo "$named"
}

print_usage_and_exit() {
    sed -n '4,/^set/s/^# \{0,1\}//p' tools/mutate.sh >&2
    exit 2
}

# Copies the working tree, uncommitted changes included. Files that are already the same in the copy
# stay untouched.
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

# A mutant can run forever or use ever more memory: the test's timeout and this limit end it.
run_test() (
    ulimit -v "$memory_limit_kb"
    ctest --test-dir "$build" -R "^$1\$" --no-tests=error >"$work/test_log" 2>&1
)

# Runs a failed test again: those that need the screen for themselves may fail by chance on a busy
# machine.
is_red() {
    ! run_test "$1" && ! run_test "$1"
}

# The first test of a source that fails with the sources in the copy, or nothing. Each test is built
# just before it runs.
first_red_test() {
    for test in $(tests_of "$1" | xargs --no-run-if-empty -n 1 | awk '!seen[$0]++'); do
        if ! build_test "$test" || is_red "$test"; then
            echo "$test"
            return
        fi
    done
}

# Applies the change of this number to the copy of a source, and prints it. If it doesn't compile,
# restores the source and fails.
mutate() {
    cp "$tree/$2" "$original"
    tools/mutations.pl apply "$1" "$original" "$tree/$2" || return 1
    cmake --build "$build" --target kelvra >"$work/build_log" 2>&1 || {
        restore "$2"
        return 1
    }
}

# A test that was killed may have left processes. If there are none, pkill fails.
restore() {
    pkill --full "$PWD/$build/tests/" || true
    cp "$original" "$tree/$1"
}

note_result() { # SOURCE CHANGE RED_TEST
    if [ -n "$3" ]; then
        echo "caught   $1 $2 (by $3)"
    else
        echo "SURVIVED $1 $2"
    fi | tee -a "$results"
}

# Tries the mutants of one source.
try_source() {
    tried=0
    for number in $(tools/mutations.pl pick "$seed" "$tree/$1"); do
        [ "$tried" -lt "$count" ] || break
        change=$(mutate "$number" "$1") || continue
        note_result "$1" "$change" "$(first_red_test "$1")"
        restore "$1"
        tried=$((tried + 1))
    done
}

try_table() {
    # shellcheck disable=SC2046  # the list is split on purpose
    [ $# -gt 0 ] || set -- $(echo "$sources" | cut -d ' ' -f 1)
    for source in "$@"; do
        fail_if_red "$(first_red_test "$source")"
    done
    for source in "$@"; do
        try_source "$source"
    done
}

red_test_of_log() {
    awk '/Test +#.*\*\*\*/ { sub(/.*Test +#[0-9]+: /, ""); print $1; found = 1; exit }
        END { if (!found) print "a test" }' "$work/test_log"
}

run_tests() (
    ulimit -v "$memory_limit_kb"
    ctest --test-dir "$build" --parallel 2 --stop-on-failure "$@" >"$work/test_log" 2>&1
)

# Most mutants are caught by a quick test, so the slow ones come last. ctest keeps the durations in a
# file.
run_all_tests() {
    costs=$build/Testing/Temporary/CTestCostData.txt
    slow=$([ ! -f "$costs" ] || awk '$3 > 2 { print $1 }' "$costs" | paste -sd '|')
    if [ -n "$slow" ]; then
        run_tests --exclude-regex "^($slow)\$" && run_tests --tests-regex "^($slow)\$"
    else
        run_tests
    fi
}

# The first of all tests that fails, or nothing.
red_test() {
    if ! cmake --build "$build" >"$work/build_log" 2>&1; then
        echo "the build"
        return
    fi
    for _ in 1 2 3; do
        ! run_all_tests || return 0
        red=$(red_test_of_log)
        if ! run_test "$red"; then
            echo "$red"
            return
        fi
    done
}

fail_if_red() { # RED_TEST
    if [ -n "$1" ]; then
        echo "$1 fails without a change" >&2
        exit 2
    fi
}

# Leaves out the list of tag names, an .inc file: a test knows its checksum.
program_sources() {
    git ls-files 'src/*.cpp' 'src/*.h' 'orv_toolkit/*.cpp' 'orv_toolkit/*.h' 'qor/*.cpp' 'qor/*.h'
}

try_lot() {
    files=$(program_sources)
    # shellcheck disable=SC2086  # the list is split on purpose
    (cd "$tree" && tools/mutations.pl draw "$seed" $files) >"$work/lot"
    fail_if_red "$(red_test)"
    tried=0
    while read -r number source <&3 && [ "$tried" -lt "$count" ]; do
        change=$(mutate "$number" "$source") || continue
        red=$(first_red_test "$source")
        note_result "$source" "$change" "${red:-$(red_test)}"
        restore "$source"
        tried=$((tried + 1))
    done 3<"$work/lot"
}

mkdir -p "$tree"
: >"$results"
copy_tree
cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=None -Dwarnings_as_errors=OFF \
    >"$work/build_log"
if [ "${1:-}" = random ]; then
    [ $# -eq 3 ] || print_usage_and_exit
    count=$2
    seed=$3
    try_lot
else
    seed=${1:-1}
    count=${2:-20}
    try_table "${@:3}"
fi

echo
grep '^SURVIVED' "$results" || echo 'no survivors'
awk '$1 == "caught" { ++caught } END {
    printf "%d of %d mutants caught, %.1f percent\n", caught, NR, 100 * caught / NR
    exit caught < 0.9 * NR }' "$results"
