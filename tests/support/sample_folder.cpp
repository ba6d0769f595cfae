// SPDX-License-Identifier: GPL-3.0-or-later

#include "sample_folder.h"

#include "file_bytes.h"

#include <QDir>

#include <sys/stat.h>

#include <algorithm>

sample_folder::sample_folder()
{
    QDir(path()).mkpath("album/older/oldest");
    QDir(path()).mkdir("empty");
    for (const char *name : {"single.jpg", "album/a.jpg", "album/b.txt", "album/.hidden.jpg",
                             "album/older/c.jpg", "album/older/oldest/d.jpg"})
        make_file(path_of(name));
    if (!QFile::link(path_of("single.jpg"), path_of("album/link.jpg")) ||
        !QFile::link(path_of("vanished.jpg"), path_of("album/broken.jpg")) ||
        !QFile::link(path_of("album"), path_of("album_link")) ||
        mkfifo(QFile::encodeName(path_of("album/pipe.jpg")), S_IRUSR | S_IWUSR) != 0)
        qFatal("can't fill %s", qPrintable(path()));
}

QStringList sample_folder::paths_of(const QStringList &names) const
{
    QStringList paths;
    for (const QString &name : names)
        paths << path_of(name);
    return paths;
}

QStringList sorted(QStringList texts)
{
    std::sort(texts.begin(), texts.end());
    return texts;
}
