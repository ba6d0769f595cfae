// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QFile>
#include <QList>
#include <QProcess>

#include <csignal>

/// What the kernel says of processes, whoever started them (proc(5)).

/// The fields of the process's line behind its name, from the state on; empty if there is none.
inline QList<QByteArray> process_fields(qint64 id)
{
    QFile file(QString("/proc/%1/stat").arg(id));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ');
}

/// Whether it waits for something.
inline bool sleeps(qint64 id)
{
    return process_fields(id).value(0) == "S";
}

/// Whether it is gone, or waits for nothing but its burial.
inline bool has_ended(qint64 id)
{
    const QByteArray state = process_fields(id).value(0);
    return state.isEmpty() || state == "Z" || state == "X";
}

/// None of what isn't a process: to QProcess one that isn't running is 0.
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

/// Ends the process and what it has started: a tool whose program is gone runs on.
inline void kill_with_children(QProcess &process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    const QList<qint64> children = children_of(process.processId());
    process.kill();
    process.waitForFinished();
    for (const qint64 child : children)
        kill(static_cast<pid_t>(child), SIGKILL);
}
