#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Tries ./run.sh and ./test.sh on machines that have only git: in two root folders with a release of
# Debian, in one as root, in the other as a normal user with sudo. Uses the last commit of the tree.
# Installs missing Debian packages first, and says which.
#
# usage: packaging/check_fresh_machine.sh [RELEASE [root | user]]
#   RELEASE  bookworm (Debian 12, the default) or trixie (Debian 13)
#
# Has to be run by root, and takes about half an hour. Stops at the first failure.
set -eu
cd "$(dirname "$0")/.."
. packaging/fresh_root.sh

print_usage_and_exit() {
    sed -n '4,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
}

release=${1:-bookworm}
who=${2:-both}
case $release:$who in
bookworm:root | bookworm:user | bookworm:both | trixie:root | trixie:user | trixie:both) ;;
*) print_usage_and_exit ;;
esac

need_root_user
tools/install_packages.sh roots

scratch=$(realpath "$(mktemp --directory)")
clean_up() {
    remove_root "$scratch/root"
    remove_root "$scratch/user"
    rm -rf --one-file-system "$scratch"
}
trap clean_up EXIT
trap 'exit 1' HUP INT TERM

# The commands that a new user types in the folder of the clone. Without a display ./run.sh runs the
# demonstration.
first_steps="./run.sh && ./test.sh"

try_as_root() {
    make_fresh_root "$scratch/root" git "$release"
    git clone --quiet --no-hardlinks . "$scratch/root/root/kelvra"
    run_in_root "$scratch/root" chown --recursive root: /root/kelvra
    run_in_root "$scratch/root" sh -c "cd /root/kelvra && $first_steps"
}

try_as_user() {
    make_fresh_root "$scratch/user" git,sudo "$release"
    run_in_root "$scratch/user" useradd --create-home anna
    echo "anna ALL=(ALL) NOPASSWD: ALL" >"$scratch/user/etc/sudoers.d/anna"
    git clone --quiet --no-hardlinks . "$scratch/user/home/anna/kelvra"
    run_in_root "$scratch/user" chown --recursive anna: /home/anna/kelvra
    run_in_root_as "$scratch/user" anna sh -c "cd kelvra && $first_steps"
}

[ "$who" = user ] || try_as_root
[ "$who" = root ] || try_as_user
