// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

/// Gives up the superuser's right to ignore permission bits, for this process and those that it
/// starts. The bits then apply as they do to everybody else (capabilities(7)).
inline void drop_permission_overrides()
{
    constexpr unsigned overriding =
        1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH | 1U << CAP_FOWNER;
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3] = {};
    if (syscall(SYS_capget, &header, sets) != 0)
        qFatal("the rights of this process can't be read");
    sets[0].effective &= ~overriding;
    sets[0].permitted &= ~overriding;
    sets[0].inheritable &= ~overriding;
    // Without the second call a program started from here would get them back.
    if (syscall(SYS_capset, &header, sets) != 0 || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        qFatal("the rights of this process can't be given up");
}
