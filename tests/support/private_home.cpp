// SPDX-License-Identifier: GPL-3.0-or-later

#include "private_home.h"

#include <QDir>
#include <QFile>
#include <QSettings>

private_home::private_home()
{
    const struct {
        const char *variable;
        const char *name;
    } places[] = {{"HOME", "home"},
                  {"XDG_CONFIG_HOME", "config"},
                  {"XDG_DATA_HOME", "data"},
                  {"XDG_CACHE_HOME", "cache"},
                  {"XDG_RUNTIME_DIR", "runtime"},
                  {"TMPDIR", "tmp"},
                  {"USERPROFILE", "home"},  // this one and the next are for Windows
                  {"TMP", "tmp"}};
    for (const auto &place : places) {
        QDir(folder.path()).mkdir(place.name);
        qputenv(place.variable, QFile::encodeName(folder.filePath(place.name)));
    }
    QFile::setPermissions(folder.filePath("runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
#ifdef Q_OS_WIN
    // The registry can't be moved.
    QSettings::setDefaultFormat(QSettings::IniFormat);
#endif
    const QString config = folder.filePath("config");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, config);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, config);
}

void clear_settings()
{
    QSettings settings;
    settings.clear();
    settings.sync();
}
