// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The program in a separate process, driven from inside by the steps of inside_driver.cpp. It is
/// killed on destruction.
class running_program
{
public:
    explicit running_program(const QString &program, const QString &steps = QString(),
                             const QStringList &arguments = QStringList(),
                             const QString &locale = "C.UTF-8");
    ~running_program();

    /// Waits until the window is on the screen and the program waits for events: a signal that
    /// arrives inside an allocation gets no report.
    bool wait_until_shown();

    /// Waits until the driver has printed `line`. False if the program ends first.
    bool wait_until_printed(const QByteArray &line);
    bool wait_until_asleep() const;
    bool wait_until_ended();

    void receive(int signal_number) const;

    /// The exit status; -1 if a signal killed the program.
    int status() const;
    qint64 process_id() const { return process.processId(); }

    /// What the driver printed under `name`.
    QStringList printed(const QString &name) const;

    QByteArray output;  ///< what it printed until the last wait ended
    QByteArray errors;

private:
    QProcess process;
};
