// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QFile>
#include <QList>
#include <QProcess>

#include <csignal>

/// What the kernel reports about processes, whoever started them (proc(5)).

/// The fields after the name in the process's stat line, starting with the state; empty if there is
/// no such process.
inline QList<QByteArray> process_fields(qint64 id)
{
    QFile file(QString("/proc/%1/stat").arg(id));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ');
}

/// Whether the process waits for something.
inline bool sleeps(qint64 id)
{
    return process_fields(id).value(0) == "S";
}

/// Whether the process is gone, or has ended and only waits to be reaped.
inline bool has_ended(qint64 id)
{
    const QByteArray state = process_fields(id).value(0);
    return state.isEmpty() || state == "Z" || state == "X";
}

/// Empty for 0, the id that QProcess has for a process that isn't running.
inline QList<qint64> children_of(qint64 id)
{
    QList<qint64> children;
    if (id <= 0)
        return children;
    for (const QString &name : QDir("/proc").entryList(QDir::Dirs)) {
        const qint64 process = name.toLongLong();
        if (process > 0 && process_fields(process).value(1).toLongLong() == id)
            children << process;
    }
    return children;
}

/// Kills the process and, except on Windows, those it has started: a tool keeps running when its
/// program is gone.
inline void kill_with_children(QProcess &process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    const QList<qint64> children = children_of(process.processId());
    process.kill();
    process.waitForFinished();
#ifdef Q_OS_UNIX
    for (const qint64 child : children)
        kill(static_cast<pid_t>(child), SIGKILL);
#endif
}
