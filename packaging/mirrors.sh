# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2034  # the variables belong to the scripts that source this
#
# Where Debian's packages come from. This file is sourced, not run.

debian_mirror=${DEBIAN_MIRROR:-http://deb.debian.org/debian}
security_mirror=${DEBIAN_SECURITY_MIRROR:-http://deb.debian.org/debian-security}
