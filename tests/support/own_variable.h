// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFileInfo>
#include <QString>

/// A variable of the environment that gets back what it held before.
class own_variable
{
public:
    own_variable(const char *name, const QByteArray &value)
        : name(name), was_set(qEnvironmentVariableIsSet(name)), before(qgetenv(name))
    {
        qputenv(name, value);
    }

    ~own_variable()
    {
        if (was_set)
            qputenv(name, before);
        else
            qunsetenv(name);
    }

    own_variable(const own_variable &) = delete;
    own_variable &operator=(const own_variable &) = delete;

private:
    const char *name;
    const bool was_set;
    const QByteArray before;
};

/// The name of the zone to whose file /etc/localtime leads, such as "Europe/Berlin".
inline QString zone_of_the_system()
{
    return QFileInfo("/etc/localtime").canonicalFilePath().section("/zoneinfo/", 1);
}
