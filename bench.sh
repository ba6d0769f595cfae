#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Measures the speed and the memory of Kelvra. Installs missing Debian packages first, and says
# which.
#
# usage: ./bench.sh [PHOTOS [RUNS]]  300 photos and 7 runs by default
#        ./bench.sh try              a few photos and one run, to see that everything works
#
# Prints the table of medians and writes it to build/bench/results.md, for a try to
# build/bench/try.md. The status is 1 if a target is missed; a try ignores the targets. The folder
# for temporary files needs room for three sets of the photos: 3.6 GB for 300.
set -eu
cd "$(dirname "$0")"

photos=${1:-300}
runs=${2:-7}
few_rows=1000
many_rows=10000
results=build/bench/results.md
if [ $# -eq 1 ] && [ "$photos" = try ]; then
    photos=2
    runs=1
    few_rows=20
    many_rows=40
    results=build/bench/try.md
fi

is_count() {
    case $1 in
    [1-9]*) case $1 in *[!0-9]*) return 1 ;; esac ;;
    *) return 1 ;;
    esac
}

if [ $# -gt 2 ] || ! is_count "$photos" || ! is_count "$runs"; then
    sed -n '4,/^set/s/^# \{0,1\}//p' bench.sh >&2
    exit 2
fi

if [ -z "${bench_display:-}" ]; then
    tools/install_packages.sh build bench
    cmake --preset bench
    cmake --build --preset bench
    exec env bench_display=yes xvfb-run --auto-servernum \
        --server-args="-screen 0 1920x1080x24" ./bench.sh "$@"
fi

bench=build/bench/bench
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' INT TERM
samples=$work/samples
mkdir -m 700 "$work/home" "$work/runtime"
export HOME="$work/home" XDG_RUNTIME_DIR="$work/runtime" LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
unset XDG_CONFIG_HOME XDG_DATA_HOME

say() {
    echo "$*" >&2
}

# Records the figures of a program under names that begin with the first argument.
measure() {
    prefix=$1
    shift
    "$@" >"$work/figures"
    sed "s/^/$prefix/" "$work/figures" >>"$samples"
}

# Records, under the name $1, the milliseconds that a command takes for each of $2 photos.
time_command() {
    name=$1
    count=$2
    shift 2
    start=$(date +%s%N)
    "$@" >"$work/output"
    end=$(date +%s%N)
    echo "$name $(((end - start) / count / 1000))e-3" >>"$samples"
}

make_photos() {
    mkdir "$work/original"
    "$bench/make_photo" "$work/photo.jpg" "$1"
    exiftool -@ bench/photo_tags.args "$work/photo.jpg"
    photo=0
    while [ "$photo" -lt "$photos" ]; do
        photo=$((photo + 1))
        cp "$work/photo.jpg" "$work/original/$(printf 'IMG_%05d.JPG' "$photo")"
    done
}

# Puts unchanged photos into folders with these names.
lay_out() {
    for folder in "$@"; do
        rm -rf "${work:?}/$folder"
        cp -r "$work/original" "$work/$folder"
    done
    sync
}

# Records what the program sends to the tool for these photos.
record_requests() {
    mkdir "$work/recorder"
    cp "$bench/batches.run/batches" "$work/recorder/"
    mkfifo "$work/recorder/pipe"
    cat >"$work/recorder/exiftool.exe" <<END
#!/bin/sh
exec 3<&0
tee "$work/requests" <&3 >"$work/recorder/pipe" &
exec exiftool "\$@" <"$work/recorder/pipe" 3<&-
END
    chmod +x "$work/recorder/exiftool.exe"
    lay_out photos
    "$work/recorder/batches" "$work/photos" >"$work/output"
}

# shellcheck disable=SC2317  # called through time_command
read_one_by_one() {
    for photo in "$work/photos"/*; do
        exiftool -G1 -args -f -sort "$photo"
    done
}

# shellcheck disable=SC2317  # called through time_command
write_one_by_one() {
    for photo in "$work/photos"/*; do
        exiftool -m -overwrite_original_in_place '-AllDates+=0:0:0 1:0:0' "$photo"
    done
}

# shellcheck disable=SC2317  # called through time_command
shift_folder() {
    exiftool -m -overwrite_original_in_place '-AllDates+=0:0:0 1:0:0' "$work/photos"
}

# Measures the program, bare requests, and the commands that a user would type instead.
measure_batches() {
    size=$1
    make_photos "$2"
    record_requests
    run=0
    while [ "$run" -lt "$runs" ]; do
        run=$((run + 1))
        say "photos of $2 kB, run $run of $runs"
        lay_out photos raw
        measure "${size}_" "$bench/batches.run/batches" \
            "$work/photos" "$work/raw" "$work/requests"
        lay_out photos
        time_command "${size}_folder_ms" "$photos" shift_folder
        find "$work/photos" -type f ! -name 'IMG_0000?.JPG' -delete
        few=$(find "$work/photos" -type f | wc -l)
        time_command "${size}_one_by_one_read_ms" "$few" read_one_by_one
        time_command "${size}_one_by_one_write_ms" "$few" write_one_by_one
    done
    rm -rf "$work/original" "$work/photos" "$work/raw" "$work/recorder" "$work/requests"
}

measure_program() {
    run=0
    while [ "$run" -lt "$runs" ]; do
        run=$((run + 1))
        say "rows and starts, run $run of $runs"
        measure few_ "$bench/rows.run/rows" "$few_rows" $((many_rows / few_rows))
        measure many_ "$bench/rows.run/rows" "$many_rows" all
        measure empty_ "$bench/start" "$bench/plugins" "$bench/empty_window" 5
        measure plain_ env QT_XCB_GL_INTEGRATION=none \
            "$bench/start" "$bench/plugins" "$bench/empty_window"
        measure kelvra_ "$bench/start" "$bench/plugins" build/bench/bin/kelvra 5
    done
}

measure_batches small 100
measure_batches large 4000
measure_program
QT_QPA_PLATFORM=offscreen "$bench/small_pieces" --benchmark_repetitions=5 \
    --benchmark_report_aggregates_only=true >"$work/pieces"

status=0
bench/table.pl "$photos" "$runs" "$few_rows" "$many_rows" "$samples" "$work/pieces" \
    >"$results" || status=$?
cat "$results"
if [ "$results" = build/bench/try.md ] && [ "$status" -eq 1 ]; then
    exit 0
fi
exit "$status"
