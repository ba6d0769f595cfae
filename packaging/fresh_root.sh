# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
#
# A release of Debian in a separate root folder, for the scripts that try things on a fresh machine.
# Those scripts have to be run by root. This file is sourced, not run.

# All users of the root folder have to be able to read what is put there.
umask 022

. packaging/mirrors.sh

# Makes the folder $1 a root folder of the release $3 (by default bookworm) with as few packages as
# possible, plus the packages $2 (separated by commas).
make_fresh_root() {
    release=${3:-bookworm}
    mkdir -p "$1"
    debootstrap --variant=minbase --include="$2" "$release" "$1" "$debian_mirror"
    cat >"$1/etc/apt/sources.list" <<END
deb $debian_mirror $release main
deb $debian_mirror $release-updates main
deb $security_mirror $release-security main
END
    cp /etc/resolv.conf "$1/etc/resolv.conf"
    mount -t proc proc "$1/proc"
    mount --bind /dev/pts "$1/dev/pts"
}

# Runs the command $2... in the root folder $1, without this machine's environment.
run_in_root() {
    new_root=$1
    shift
    chroot "$new_root" /usr/bin/env -i HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"
}

# The same, as the user $2 and in that user's home folder.
run_in_root_as() {
    new_root=$1
    user=$2
    shift 2
    run_in_root "$new_root" runuser --user "$user" -- \
        env --chdir="/home/$user" "HOME=/home/$user" "$@"
}

# Removes the root folder $1, and kills what still runs in it.
remove_root() {
    for process in /proc/[0-9]*; do
        case $(readlink "$process/root") in
        "$1" | "$1"/*) kill -9 "${process#/proc/}" 2>/dev/null || true ;;
        esac
    done
    for folder in "$1/proc" "$1/dev/pts" "$1/sys"; do
        if mountpoint --quiet "$folder"; then
            umount --lazy "$folder"
        fi
    done
    rm -rf --one-file-system "$1"
}

need_root_user() {
    if [ "$(id -u)" -ne 0 ]; then
        echo "This needs root, for debootstrap and chroot." >&2
        exit 2
    fi
}
