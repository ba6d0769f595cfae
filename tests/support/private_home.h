// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTemporaryDir>

/// A home, settings and temporary folder for this process only. Create it before the application
/// object. The environment points there for child processes too.
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
