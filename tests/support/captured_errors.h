// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

/// Takes what this process writes to its standard error while this lives, by whatever library.
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
