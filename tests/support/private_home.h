// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTemporaryDir>

/// A home, a settings folder and a temporary folder of this process alone; made before the
/// application object. The environment keeps pointing there for child processes too.
class private_home
{
public:
    private_home();

    QString path() const { return folder.path(); }
    QString filePath(const QString &name) const { return folder.filePath(name); }

private:
    QTemporaryDir folder;
};

/// Removes every stored setting of the program.
void clear_settings();
