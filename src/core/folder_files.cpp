// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/folder_files.h"

#include <QDir>
#include <QFileInfo>

QStringList folder_files(const QString &folder)
{
    const QDir dir(QFileInfo(folder).absoluteFilePath());
    QStringList files;
    const QFileInfoList entries =
        dir.entryInfoList(QDir::Files | QDir::Readable | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QFileInfo &entry : entries)
        files << entry.absoluteFilePath();
    return files;
}

QStringList files_and_folder_contents(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names) {
        if (QFileInfo(name).isDir())
            paths << folder_files(name);
        else
            paths << name;
    }
    QStringList files;
    for (const QString &path : qAsConst(paths)) {
        if (QFileInfo(path).isFile())
            files << path;
    }
    return files;
}
