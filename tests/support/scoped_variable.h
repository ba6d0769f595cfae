// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// Sets an environment variable for its lifetime, then restores the old value.
class scoped_variable
{
public:
    scoped_variable(const char *name, const QByteArray &value)
        : name(name), was_set(qEnvironmentVariableIsSet(name)), before(qgetenv(name))
    {
        qputenv(name, value);
    }

    ~scoped_variable()
    {
        if (was_set)
            qputenv(name, before);
        else
            qunsetenv(name);
    }

    scoped_variable(const scoped_variable &) = delete;
    scoped_variable &operator=(const scoped_variable &) = delete;

private:
    const char *name;
    const bool was_set;
    const QByteArray before;
};
