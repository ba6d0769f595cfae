// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// Creates or replaces a file; aborts the test if that fails.
inline void make_file(const QString &path, const QByteArray &bytes = QByteArray())
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(path));
}

/// The contents of a file; aborts the test if it can't be read.
inline QByteArray bytes_of(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("can't read %s", qPrintable(path));
    return file.readAll();
}
