// SPDX-License-Identifier: GPL-3.0-or-later

#include "temporary_volume.h"

#include <QFile>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

bool write_text(const char *path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
           file.write(text) == text.size();
}

/// The user remains the same in the new user namespace (user_namespaces(7)).
bool enter_user_namespace()
{
    const QByteArray user = QByteArray::number(getuid());
    const QByteArray group = QByteArray::number(getgid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           write_text("/proc/self/uid_map", user + " " + user + " 1") &&
           write_text("/proc/self/setgroups", "deny") &&
           write_text("/proc/self/gid_map", group + " " + group + " 1");
}

bool enter()
{
    return (unshare(CLONE_NEWNS) == 0 || enter_user_namespace()) &&
           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Tried in a child process, since a namespace that was only partly entered can't be left again.
bool may_enter()
{
    const pid_t child = fork();
    if (child == 0)
        _exit(enter() ? 0 : 1);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

}  // namespace

void enter_private_mounts()
{
    if (may_enter() && !enter())
        qFatal("no file systems of one's own");
}

temporary_volume::temporary_volume(const QString &folder, int pages) : folder(folder)
{
    const QByteArray options =
        "mode=0700,huge=never,size=" + QByteArray::number(pages * page_size());
    mounted = mount("tmpfs", QFile::encodeName(folder), "tmpfs", 0, options) == 0;
}

temporary_volume::~temporary_volume()
{
    if (mounted)
        umount2(QFile::encodeName(folder), MNT_DETACH);
}

void temporary_volume::make_read_only() const
{
    if (mount(nullptr, QFile::encodeName(folder), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
        qFatal("%s can't be made read-only", qPrintable(folder));
}

void temporary_volume::leave_room(int pages) const
{
    struct statvfs room = {};
    QFile file(filler());
    if (statvfs(QFile::encodeName(folder), &room) != 0 || !file.open(QIODevice::WriteOnly))
        qFatal("no volume at %s", qPrintable(folder));
    const QByteArray page(page_size(), 'x');
    for (auto left = static_cast<int>(room.f_bavail); left > pages; --left)
        file.write(page);
}

void temporary_volume::make_room() const
{
    QFile::remove(filler());
}

int temporary_volume::page_size()
{
    return static_cast<int>(sysconf(_SC_PAGESIZE));
}
