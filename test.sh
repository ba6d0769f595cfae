#!/bin/sh
# Builds Kelvra and runs its tests. Installs missing Debian packages first, and says which.
#
# usage: ./test.sh         the tests
#        ./test.sh asan    the same with AddressSanitizer and UndefinedBehaviorSanitizer
set -eu
cd "$(dirname "$0")"

case ${1:-release} in
release | asan) preset=${1:-release} ;;
*)
    sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

packaging/install_packages.sh build test
cmake --preset "$preset"
cmake --build --preset "$preset"
exec ctest --preset "$preset"
