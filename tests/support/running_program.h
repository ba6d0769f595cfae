// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The program in a process of its own, driven from within by the steps of inside_driver.cpp. It is
/// killed when this goes.
class running_program
{
public:
    explicit running_program(const QString &program, const QString &steps = QString(),
                             const QStringList &arguments = QStringList(),
                             const QString &locale = "C.UTF-8");
    ~running_program();

    /// Until it stands on the screen and waits for events: the report isn't made for a signal
    /// inside of an allocation.
    bool wait_until_shown();

    /// Until the driver has printed `line`; false if it ends before.
    bool wait_until_printed(const QByteArray &line);
    bool wait_until_asleep() const;
    bool wait_until_ended();

    void receive(int signal_number) const;

    /// -1 if a signal ended it without the program's doing.
    int status() const;
    qint64 process_id() const { return process.processId(); }

    /// What the driver printed under `name`.
    QStringList printed(const QString &name) const;

    QByteArray output;  ///< what it said until the last wait ended
    QByteArray errors;

private:
    QProcess process;
};
