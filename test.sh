#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds Kelvra and runs its tests. Installs missing Debian packages first, and lists them.
#
# usage: ./test.sh           the tests
#        ./test.sh asan      the same with AddressSanitizer and UndefinedBehaviorSanitizer
#        ./test.sh clang     the tests, built with clang
#        ./test.sh coverage  the tests, and which lines and branches of the program they run; writes
#                            a page for each source to build/coverage/report
#        ./test.sh windows   the tests that can be built for Windows, under Wine
#        ./test.sh soak      5,000 photos loaded, fixed and undone three times in one process
set -eu
cd "$(dirname "$0")"

tests=${1:-release}
case $tests in
release | clang | asan | coverage | windows) preset=$tests ;;
soak) preset=release ;;
*)
    sed -n '4,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

tools/install_packages.sh build test
case $preset in
release | windows) tools/install_packages.sh manual ;;
esac
[ "$tests" != clang ] || tools/install_packages.sh clang
if [ "$tests" = windows ]; then
    tools/install_packages.sh windows check_windows
    packaging/windows/build_qt.sh
    packaging/windows/fetch_tool.sh
    packaging/windows/run_in_wine.sh wineboot --init
    trap 'WINEPREFIX="$PWD/build/windows_parts/wine" wineserver --kill' EXIT
fi
cmake --preset "$preset"
cmake --build --preset "$preset"
if [ "$tests" = windows ]; then
    ctest --preset windows
    exit
fi
[ "$tests" = coverage ] || exec ctest --preset "$tests"

tools/install_packages.sh coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage
mkdir -p build/coverage/report
gcovr --object-directory build/coverage --filter src/ --filter orv_toolkit/ --filter qor/ \
    --exclude-throw-branches --exclude-unreachable-branches --sort-uncovered \
    --txt --html-details build/coverage/report/index.html --print-summary
