// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

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
