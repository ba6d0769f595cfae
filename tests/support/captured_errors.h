// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

/// While it exists, captures everything that this process and its libraries write to standard
/// error.
class captured_errors
{
public:
    captured_errors() : before(dup(STDERR_FILENO))
    {
        if (!file.open())
            qFatal("no file for the standard error");
        redirect_to(file.handle());
    }

    ~captured_errors()
    {
        redirect_to(before);
        close(before);
    }

    captured_errors(const captured_errors &) = delete;
    captured_errors &operator=(const captured_errors &) = delete;

    QByteArray text()
    {
        std::fflush(stderr);
        file.seek(0);
        return file.readAll();
    }

private:
    static void redirect_to(int target)
    {
        std::fflush(stderr);
        dup2(target, STDERR_FILENO);
    }

    int before;
    QTemporaryFile file;
};
