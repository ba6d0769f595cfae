// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder with all that a folder can hold, removed with this object: the file "single.jpg", the
/// folder "empty", the link "album_link" to the folder "album", and in that the files "a.jpg" and
/// "b.txt", the hidden ".hidden.jpg", the link "link.jpg", the broken link "broken.jpg", the pipe
/// "pipe.jpg", and two levels of folders with a photo each.
class sample_folder
{
public:
    sample_folder();

    QString path() const { return folder.path(); }
    QString path_of(const QString &name) const { return folder.filePath(name); }
    QStringList paths_of(const QStringList &names) const;

private:
    QTemporaryDir folder;
};

/// The order in which a folder lists its files isn't fixed.
QStringList sorted(QStringList texts);
