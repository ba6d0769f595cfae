// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// The absolute paths of the readable files in a folder, in the order of the file system. Hidden
/// files, system files and subfolders are left out.
QStringList folder_files(const QString &folder);

/// The paths in `names`, with each folder replaced by the files directly in it. Anything that isn't
/// an existing file is left out.
QStringList files_and_folder_contents(const QStringList &names);
